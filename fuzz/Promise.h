#pragma once

#include <stdexcept>
#include <string_view>

namespace plotvane::fuzz {

// An input under which the code did not do what it says. libFuzzer takes the exception for a crash, a unit
// test for a failure.
struct BrokenPromise : std::logic_error {
    using std::logic_error::logic_error;
};

inline void Require(bool kept, const char* promise) {
    if (!kept) throw BrokenPromise(promise);
}

}  // namespace plotvane::fuzz
