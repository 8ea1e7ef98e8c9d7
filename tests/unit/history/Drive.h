#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "history/LookBack.h"
#include "history/Recording.h"

namespace plotvane::test {

constexpr std::uint16_t kAllDrawn = 0x0FFF;

// A trace that shows field 1 of group 1, "Speed" in "/min", from 0 to 100.
RecordedTrace SpeedTrace();

// As the first trace alone.
RecordedTraces SpeedAlone();

// Values of which the first is given; each of the others is one more than the one before.
Recording::Values ValuesFrom(double first);

// Records values of the first trace, a sample a second from 0 on.
void Record(Recording& recording, const std::vector<double>& values);

// Looks at all of a recording, in this many columns.
LookBack LookAtAll(const Recording& recording, int columns);

}  // namespace plotvane::test
