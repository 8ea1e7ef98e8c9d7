#pragma once

#include <cstddef>

namespace plotvane::test {

// How often this program has asked for memory by `new`, in any form and wherever from.
std::size_t NewCount();

}  // namespace plotvane::test
