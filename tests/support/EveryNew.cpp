// All forms. The standard library leads those for arrays, and those that do not throw, to the first one, but
// the sanitizer brings its own of each; what one of those has given must not come back to a plain `free`.
#include "tests/support/EveryNew.h"

#include <cstdlib>
#include <new>

namespace {

void* Allocate(std::size_t size) noexcept {
    return plotvane::test::MayAllocate() ? std::malloc(size == 0 ? 1 : size) : nullptr;
}

void* AllocateOrThrow(std::size_t size) {
    if (void* const memory = Allocate(size)) return memory;
    throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t size) {
    return AllocateOrThrow(size);
}
void* operator new[](std::size_t size) {
    return AllocateOrThrow(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return Allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return Allocate(size);
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete(void* memory, const std::nothrow_t&) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, const std::nothrow_t&) noexcept {
    std::free(memory);
}
