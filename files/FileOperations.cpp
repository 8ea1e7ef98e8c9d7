#include "files/FileOperations.h"

#include <sys/stat.h>

#include <cstdio>
#include <optional>

#ifdef _WIN32
#include <direct.h>

#include <cwchar>
#endif

namespace plotvane {
namespace {

constexpr unsigned kWriteBits = 0222;  // of user, group and others; Windows keeps them alike

std::optional<unsigned> ModeOf(const std::filesystem::path& path) {
#ifdef _WIN32
    struct _stat64 status {};
    if (_wstat64(path.c_str(), &status) != 0) return std::nullopt;
#else
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) return std::nullopt;
#endif
    return status.st_mode;
}

void MakeFolder(const std::filesystem::path& folder) {
#ifdef _WIN32
    _wmkdir(folder.c_str());
#else
    static_cast<void>(mkdir(folder.c_str(), 0777));
#endif
}

}  // namespace

FileKind KindOf(const std::filesystem::path& path) {
    const auto mode = ModeOf(path);
    if (!mode) return FileKind::Missing;
    if ((*mode & S_IFMT) != S_IFREG) return FileKind::Other;
    return (*mode & kWriteBits) != 0 ? FileKind::File : FileKind::Protected;
}

bool IsFolder(const std::filesystem::path& path) {
    const auto mode = ModeOf(path);
    return mode && (*mode & S_IFMT) == S_IFDIR;
}

void MakeFolders(const std::filesystem::path& folder) {
    if (!folder.has_relative_path() || IsFolder(folder)) return;
    MakeFolders(folder.parent_path());
    MakeFolder(folder);
}

void RemoveFile(const std::filesystem::path& path) {
#ifdef _WIN32
    static_cast<void>(_wremove(path.c_str()));
#else
    static_cast<void>(std::remove(path.c_str()));
#endif
}

#ifndef _WIN32
bool RenameFile(const std::filesystem::path& from, const std::filesystem::path& to) {
    return std::rename(from.c_str(), to.c_str()) == 0;
}
#endif

}  // namespace plotvane
