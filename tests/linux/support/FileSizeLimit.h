#pragma once

#include <cstddef>

namespace plotvane::test {

// A disk with room for `bytes` more in any one file, for as long as this object lives: the system writes as
// much as fits, and refuses the rest. Affects the regular files of this process and of those it forks.
class FileSizeLimit {
public:
    explicit FileSizeLimit(std::size_t bytes);
    ~FileSizeLimit();
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    using SignalHandler = void (*)(int);

    std::size_t m_before;
    SignalHandler m_handlerBefore;
};

}  // namespace plotvane::test
