#include <dirent.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdlib>
#include <memory>
#include <optional>

#include "base/FileOperations.h"

namespace plotvane {
namespace {

constexpr mode_t kWriteBits = 0222;  // of user, group and others

bool SaysMissing(int error) {
    return error == ENOENT || error == ENOTDIR;
}

bool IsLinkToNowhere(const std::filesystem::path& path) {
    struct stat status {};
    return lstat(path.c_str(), &status) == 0;
}

// Nothing if part of the path is missing.
std::optional<std::filesystem::path> Resolved(const std::filesystem::path& path) {
    const auto release = [](char* text) { std::free(text); };
    const std::unique_ptr<char, decltype(release)> text(realpath(path.c_str(), nullptr), release);
    if (!text) return std::nullopt;
    return std::filesystem::path(text.get());
}

}  // namespace

FileKind KindOf(const std::filesystem::path& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) {
        return SaysMissing(errno) && !IsLinkToNowhere(path) ? FileKind::Missing : FileKind::Other;
    }
    if (!S_ISREG(status.st_mode)) return FileKind::Other;
    return (status.st_mode & kWriteBits) != 0 ? FileKind::File : FileKind::Protected;
}

bool IsFolder(const std::filesystem::path& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

std::uint64_t SizeOfFile(const std::filesystem::path& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 ? static_cast<std::uint64_t>(status.st_size) : 0;
}

std::filesystem::path FinalPathOf(const std::filesystem::path& path) {
    if (const auto file = Resolved(path)) return *file;
    const auto folder = Resolved(path.has_parent_path() ? path.parent_path() : ".");
    return folder ? *folder / path.filename() : path;
}

std::vector<std::filesystem::path> EntriesOf(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> entries;
    const auto close = [](DIR* search) { closedir(search); };
    const std::unique_ptr<DIR, decltype(close)> search(opendir(folder.c_str()));
    if (!search) return entries;
    while (const dirent* const entry = readdir(search.get())) entries.push_back(folder / entry->d_name);
    return entries;
}

}  // namespace plotvane
