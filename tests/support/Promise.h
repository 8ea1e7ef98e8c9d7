#pragma once

#include <stdexcept>
#include <string_view>

namespace plotvane::test {

// Thrown if an input makes the code break a promise. libFuzzer reports the exception as a crash, a unit test
// as a failure.
struct BrokenPromise : std::logic_error {
    using std::logic_error::logic_error;
};

inline void Require(bool kept, const char* promise) {
    if (!kept) throw BrokenPromise(promise);
}

}  // namespace plotvane::test
