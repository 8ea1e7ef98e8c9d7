#include "tests/linux/support/FileFaults.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <optional>
#include <string_view>

namespace {

// Each is set while its object lives.
std::optional<std::size_t> bytesUntilError;
bool areHeld = false;
bool waitingIsOver = false;

struct FailingFile {
    std::FILE* file;
    std::size_t bytesLeft;
};

ssize_t Read(void* cookie, char* buffer, std::size_t size) {
    auto* const failing = static_cast<FailingFile*>(cookie);
    if (failing->bytesLeft == 0) {
        errno = EIO;
        return -1;
    }
    const std::size_t count = std::fread(buffer, 1, std::min(size, failing->bytesLeft), failing->file);
    failing->bytesLeft -= count;
    return static_cast<ssize_t>(count);
}

int Close(void* cookie) {
    auto* const failing = static_cast<FailingFile*>(cookie);
    const int result = std::fclose(failing->file);
    delete failing;
    return result;
}

std::FILE* ReadThroughFaults(std::FILE* file, std::string_view mode) {
    if (file == nullptr || !bytesUntilError || mode != "rb") return file;
    const cookie_io_functions_t functions{.read = Read, .write = nullptr, .seek = nullptr, .close = Close};
    return fopencookie(new FailingFile{file, *bytesUntilError}, "rb", functions);
}

}  // namespace

// The linker directs the program's own calls here: see CMakeLists.txt.
extern "C" {

std::FILE* __real_fopen(const char* path, const char* mode);
std::FILE* __wrap_fopen(const char* path, const char* mode);
std::FILE* __real_fdopen(int descriptor, const char* mode);
std::FILE* __wrap_fdopen(int descriptor, const char* mode);
int __real_renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags);
int __wrap_renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags);
int __real_nanosleep(const timespec* time, timespec* left);
int __wrap_nanosleep(const timespec* time, timespec* left);

std::FILE* __wrap_fopen(const char* path, const char* mode) {
    return ReadThroughFaults(__real_fopen(path, mode), mode);
}

std::FILE* __wrap_fdopen(int descriptor, const char* mode) {
    return ReadThroughFaults(__real_fdopen(descriptor, mode), mode);
}

int __wrap_renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) {
    const bool replaces = (flags & RENAME_NOREPLACE) == 0 && access(to, F_OK) == 0;
    if (areHeld && replaces) {
        errno = EACCES;
        return -1;
    }
    return __real_renameat2(fromFolder, from, toFolder, to, flags);
}

int __wrap_nanosleep(const timespec* time, timespec* left) {
    return waitingIsOver ? 0 : __real_nanosleep(time, left);
}
}

namespace plotvane::test {

ReadError::ReadError(std::size_t bytes) {
    bytesUntilError = bytes;
}
ReadError::~ReadError() {
    bytesUntilError.reset();
}

HeldFiles::HeldFiles() {
    areHeld = true;
}
HeldFiles::~HeldFiles() {
    areHeld = false;
}

NoWaiting::NoWaiting() {
    waitingIsOver = true;
}
NoWaiting::~NoWaiting() {
    waitingIsOver = false;
}

}  // namespace plotvane::test
