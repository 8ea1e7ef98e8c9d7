#include "tests/memory/FailingNew.h"

#include <cstdlib>
#include <new>

namespace {

std::size_t g_requestsLeft = 0;  // up to the one that fails; one thread only

}  // namespace

namespace plotvane::test {

RequestFails::RequestFails(std::size_t request) {
    g_requestsLeft = request;
}

RequestFails::~RequestFails() {
    g_requestsLeft = 0;
}

bool RequestFails::HasFailed() const {
    return g_requestsLeft == 0;
}

}  // namespace plotvane::test

// The forms for arrays, and those that do not throw, come through here too.
void* operator new(std::size_t size) {
    if (g_requestsLeft > 0 && --g_requestsLeft == 0) throw std::bad_alloc();
    if (void* const memory = std::malloc(size == 0 ? 1 : size)) return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
