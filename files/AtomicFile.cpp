#include "files/AtomicFile.h"

#include <string>

#include "files/FileOperations.h"
#include "files/HeldFile.h"
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

// On Windows a file that is held cannot be renamed over.
bool RenameOver(const std::filesystem::path& from, const std::filesystem::path& to) {
    return OutwaitHolder([&] { return RenameFile(from, to); });
}

}  // namespace

bool ReplaceTextFile(const std::filesystem::path& path, std::string_view text) {
    // The renaming would replace a file that its user has protected; opening it for writing would not.
    const FileKind kind = KindOf(path);
    if (kind == FileKind::Protected || kind == FileKind::Other) return false;
    std::filesystem::path beside = path;
    beside.replace_extension(".new");  // no longer than the path, which may be as long as Windows takes
    if (WriteWhole(beside, WithCrLf(text)) && RenameOver(beside, path)) return true;
    RemoveFile(beside);
    return false;
}

}  // namespace plotvane
