#pragma once

#include <cstdint>
#include <optional>

namespace plotvane {

// Tells a double click from single presses, for a window that hears of nothing but presses.
class DoubleClick {
public:
    // How far apart the two presses may be.
    struct Limits {
        std::uint64_t ms;
        int xPx;
        int yPx;
    };

    // `ms` is the time of a press by a clock that never goes back. True if the press completes a double
    // click; the next one begins another.
    bool TakePress(std::uint64_t ms, int x, int y, const Limits& limits);

private:
    struct Press {
        std::uint64_t ms;
        int x;
        int y;
    };
    std::optional<Press> m_first;
};

}  // namespace plotvane
