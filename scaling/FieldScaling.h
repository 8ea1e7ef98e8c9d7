#pragma once

#include <cstddef>
#include <string>

namespace plotvane {

constexpr std::size_t kMaxUnitLength =
    39;  // bytes; a field of the host may have a longer one, which never matches

// The range for the values of one unit, as the default scaling table keeps it.
struct FieldScaling {
    std::string unit;  // Windows-1252, at most kMaxUnitLength bytes, no comma (it ends a token in the file)
    int min = 0;       // in that unit
    int max = 0;
};

}  // namespace plotvane
