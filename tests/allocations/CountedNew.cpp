#include "tests/allocations/CountedNew.h"

#include "tests/support/EveryNew.h"

namespace plotvane::test {
namespace {

std::size_t g_count = 0;  // one thread only

}  // namespace

std::size_t NewCount() {
    return g_count;
}

bool MayAllocate() noexcept {
    ++g_count;
    return true;
}

}  // namespace plotvane::test
