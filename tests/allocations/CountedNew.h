#pragma once

#include <cstddef>

namespace plotvane::test {

// How often this program has called `new`, from anywhere and in any form. The form for types with a larger
// alignment than usual is not counted; nothing uses it.
std::size_t NewCount();

}  // namespace plotvane::test
