#pragma once

#include <cstddef>

namespace plotvane::test {

// A disk that gives up so many bytes of each file and then fails, for as long as this object lives. Counts
// for files that this process opens meanwhile through the program's own code.
class ReadError {
public:
    explicit ReadError(std::size_t bytes);
    ~ReadError();
    ReadError(const ReadError&) = delete;
    ReadError& operator=(const ReadError&) = delete;
};

// Files that other programs have open, as Windows treats them: none can be renamed over, all can be written.
// For as long as this object lives, in this process and in those it forks.
class HeldFiles {
public:
    HeldFiles();
    ~HeldFiles();
    HeldFiles(const HeldFiles&) = delete;
    HeldFiles& operator=(const HeldFiles&) = delete;
};

// Waiting takes no time, for as long as this object lives, in this process and in those it forks: for tests
// that wait for a holder a hundred times.
class NoWaiting {
public:
    NoWaiting();
    ~NoWaiting();
    NoWaiting(const NoWaiting&) = delete;
    NoWaiting& operator=(const NoWaiting&) = delete;
};

}  // namespace plotvane::test
