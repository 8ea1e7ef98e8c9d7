#pragma once

#include <string>
#include <vector>

#include "history/Viewport.h"

namespace plotvane {

// A mark on the time axis.
struct TimeTick {
    double seconds;
    std::string text;
};

// A time as a person reads it: "12.5" below a minute, "3:05" below an hour, "1:02:30" from there on, with so
// many decimals of the second (0..3). `seconds` may be negative.
std::string TimeText(double seconds, int decimals);

// A length of time in words: "12 s", "3 min 12 s", "1 h 3 min". `seconds` is not negative.
std::string DurationText(double seconds);

// Marks at round times, the closest that stand at least `leastDistance` pixels (above 0) apart.
std::vector<TimeTick> TimeTicks(const Viewport& view, int leastDistance);

}  // namespace plotvane
