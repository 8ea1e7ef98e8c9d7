#include <fcntl.h>
#include <sys/file.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <utility>

#include "base/FileOperations.h"
#include "base/OwnFile.h"

namespace plotvane {
namespace {

// Between the opening and the lock, another program may have taken the file, and even removed it.
bool BecomesOwn(int descriptor) {
    struct stat status {};
    return flock(descriptor, LOCK_EX | LOCK_NB) == 0 && fstat(descriptor, &status) == 0 &&
           S_ISREG(status.st_mode) && status.st_nlink > 0;
}

FileHandle AsOwnFile(int descriptor, const char* mode) {
    if (descriptor == -1) return nullptr;
    FileHandle file(BecomesOwn(descriptor) ? fdopen(descriptor, mode) : nullptr);
    if (!file) {
        const int reason = errno;
        close(descriptor);
        errno = reason;
    }
    return file;
}

}  // namespace

FileHandle CreateOwnFile(const std::filesystem::path& path) {
    return AsOwnFile(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666), "wb");
}

TakenFile TakeFile(const std::filesystem::path& path) {
    const int descriptor = open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (descriptor == -1) return {};
    errno = 0;
    FileHandle file = AsOwnFile(descriptor, "rb");
    const bool isHeld = !file && errno == EWOULDBLOCK;
    return {std::move(file), isHeld};
}

bool RenameOwnFile(const FileHandle& /*file*/, const std::filesystem::path& from,
                   const std::filesystem::path& to, IfTaken ifTaken) {
    const unsigned flags = ifTaken == IfTaken::Fail ? RENAME_NOREPLACE : 0;
    return renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), flags) == 0;
}

// Removes it while this program still has it: once closed, another program may take it.
void RemoveOwnFile(FileHandle /*file*/, const std::filesystem::path& path) {
    RemoveFile(path);
}

std::uint64_t RandomNumber() {
    std::uint64_t number = 0;
    static_cast<void>(getentropy(&number, sizeof number));
    return number;
}

}  // namespace plotvane
