#pragma once

#include <cstddef>

namespace plotvane::test {

// How often this program has asked for memory by `new`, from anywhere and in any form but that for types with
// a larger alignment than usual, of which there are none.
std::size_t NewCount();

}  // namespace plotvane::test
