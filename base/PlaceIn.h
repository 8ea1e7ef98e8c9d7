#pragma once

#include <optional>

namespace plotvane {

// The place, from 0, of a number in a run of `count` numbers that begins with `first`; nothing if it is not
// among them.
constexpr std::optional<int> PlaceIn(int first, int count, int number) {
    if (number < first || number >= first + count) return std::nullopt;
    return number - first;
}

}  // namespace plotvane
