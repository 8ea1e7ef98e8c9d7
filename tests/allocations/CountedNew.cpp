#include "tests/allocations/CountedNew.h"

#include <cstdlib>
#include <new>

namespace {

std::size_t g_count = 0;  // one thread only

}  // namespace

namespace plotvane::test {

std::size_t NewCount() {
    return g_count;
}

}  // namespace plotvane::test

// The forms for arrays, and those that do not throw, come through here too.
void* operator new(std::size_t size) {
    ++g_count;
    if (void* const memory = std::malloc(size == 0 ? 1 : size)) return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
