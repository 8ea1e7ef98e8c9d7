#include "files/AtomicFile.h"

#include <chrono>
#include <string>
#include <system_error>
#include <thread>

#include "files/TextInput.h"

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace plotvane {
namespace {

std::string WithCrLf(std::string_view text) {
    std::string bytes;
    bytes.reserve(text.size() + text.size() / 16);
    for (const char c : text) {
        if (c == '\n') bytes += '\r';
        bytes += c;
    }
    return bytes;
}

bool FlushToDisk(std::FILE* file) {
    if (std::fflush(file) != 0) return false;
#ifdef _WIN32
    return _commit(_fileno(file)) == 0;
#else
    return fsync(fileno(file)) == 0;
#endif
}

bool WriteWhole(const std::filesystem::path& path, const std::string& bytes) {
    FileHandle file = OpenFile(path, "wb");
    if (!file) return false;
    const bool written =
        std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size() && FlushToDisk(file.get());
    return std::fclose(file.release()) == 0 && written;
}

// The renaming would replace a file that its user has protected; opening it for writing would not.
bool IsProtected(const std::filesystem::path& path) {
    std::error_code error;
    const auto status = std::filesystem::status(path, error);
    if (error || !std::filesystem::exists(status)) return false;
    constexpr auto kWrite = std::filesystem::perms::owner_write | std::filesystem::perms::group_write |
                            std::filesystem::perms::others_write;
    return !std::filesystem::is_regular_file(status) ||
           (status.permissions() & kWrite) == std::filesystem::perms::none;
}

// A virus scanner or an indexer often holds a file for a moment just after it was written, and Windows then
// refuses to rename it. Tried for 80 ms at most: the user-interface thread waits.
bool RenameOver(const std::filesystem::path& from, const std::filesystem::path& to) {
    constexpr int kAttempts = 5;
    constexpr std::chrono::milliseconds kPause{20};
    std::error_code error;
    for (int attempt = 1;; ++attempt) {
        std::filesystem::rename(from, to, error);
        if (!error) return true;
        if (attempt == kAttempts) return false;
        std::this_thread::sleep_for(kPause);
    }
}

}  // namespace

bool ReplaceTextFile(const std::filesystem::path& path, std::string_view text) {
    if (IsProtected(path)) return false;
    std::filesystem::path beside = path;
    beside.replace_extension(".new");  // no longer than the path, which may be as long as Windows takes
    if (WriteWhole(beside, WithCrLf(text)) && RenameOver(beside, path)) return true;
    std::error_code ignored;
    std::filesystem::remove(beside, ignored);
    return false;
}

}  // namespace plotvane
