#include "base/FileHandle.h"

#include <cstdlib>
#include <string>

#include "base/FileOperations.h"
#include "base/OutwaitHolder.h"

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace plotvane {

#ifdef _WIN32

namespace {
constexpr unsigned long kSharingViolation = 32;  // the system's number for this error
}

FileHandle TryToOpenFile(const std::filesystem::path& path, const char* mode) {
    const std::wstring wideMode(mode, mode + std::char_traits<char>::length(mode));
    return FileHandle(_wfopen(path.c_str(), wideMode.c_str()));
}

FileHandle OpenFile(const std::filesystem::path& path, const char* mode) {
    FileHandle file;
    OutwaitHolder([&] {
        file = TryToOpenFile(path, mode);
        return file || _doserrno != kSharingViolation;
    });
    return file;
}

bool FlushToDisk(std::FILE* file) {
    return std::fflush(file) == 0 && _commit(_fileno(file)) == 0;
}

bool CutFile(std::FILE* file, long size) {
    return std::fflush(file) == 0 && _chsize(_fileno(file), size) == 0;
}

#else

FileHandle TryToOpenFile(const std::filesystem::path& path, const char* mode) {
    return FileHandle(IsFolder(path) ? nullptr : std::fopen(path.c_str(), mode));
}

FileHandle OpenFile(const std::filesystem::path& path, const char* mode) {
    return TryToOpenFile(path, mode);
}

bool FlushToDisk(std::FILE* file) {
    return std::fflush(file) == 0 && fsync(fileno(file)) == 0;
}

bool CutFile(std::FILE* file, long size) {
    return std::fflush(file) == 0 && ftruncate(fileno(file), size) == 0;
}

#endif

}  // namespace plotvane
