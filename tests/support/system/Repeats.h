#pragma once

#include <cstdlib>

namespace plotvane::test {

// How often a test does what it does: the usual number, or the one that the environment asks for, as
// scripts/soak.sh does.
inline int Repeats(const char* variable, int usual) {
    const char* const asked = std::getenv(variable);
    return asked ? std::atoi(asked) : usual;
}

}  // namespace plotvane::test
