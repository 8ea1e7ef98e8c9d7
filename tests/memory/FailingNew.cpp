#include "tests/memory/FailingNew.h"

#include "tests/support/EveryNew.h"

namespace plotvane::test {
namespace {

std::size_t g_requestsLeft = 0;  // up to the one that fails; one thread only

}  // namespace

RequestFails::RequestFails(std::size_t request) {
    g_requestsLeft = request;
}

RequestFails::~RequestFails() {
    g_requestsLeft = 0;
}

bool RequestFails::HasFailed() const {
    return g_requestsLeft == 0;
}

bool MayAllocate() noexcept {
    return g_requestsLeft == 0 || --g_requestsLeft > 0;
}

}  // namespace plotvane::test
