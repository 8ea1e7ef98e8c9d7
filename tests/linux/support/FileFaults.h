#pragma once

#include <cstddef>

namespace plotvane::test {

// A disk that fails after the first bytes of each file, for as long as this object lives. Affects the files
// that this process opens meanwhile through the program's own code.
class ReadError {
public:
    explicit ReadError(std::size_t bytes);
    ~ReadError();
    ReadError(const ReadError&) = delete;
    ReadError& operator=(const ReadError&) = delete;
};

// Makes all files behave like files that other programs have open on Windows: they can be written, but
// nothing can be renamed over them. Works for as long as this object lives, in this process and in those it
// forks.
class HeldFiles {
public:
    HeldFiles();
    ~HeldFiles();
    HeldFiles(const HeldFiles&) = delete;
    HeldFiles& operator=(const HeldFiles&) = delete;
};

// Waiting takes no time, for as long as this object lives, in this process and in those it forks. For tests
// in which the program waits for another one a hundred times.
class NoWaiting {
public:
    NoWaiting();
    ~NoWaiting();
    NoWaiting(const NoWaiting&) = delete;
    NoWaiting& operator=(const NoWaiting&) = delete;
};

}  // namespace plotvane::test
