#pragma once

#include <cstdlib>

namespace plotvane::test {

// How often a test repeats its work: the usual number, or the one in that variable of the environment, which
// scripts/soak.sh sets.
inline int Repeats(const char* variable, int usual) {
    const char* const asked = std::getenv(variable);
    return asked ? std::atoi(asked) : usual;
}

}  // namespace plotvane::test
