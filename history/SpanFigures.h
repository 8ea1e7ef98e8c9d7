#pragma once

#include <cstdint>

#include "history/Recording.h"

namespace plotvane {

// What the numbers beside the plot say of a trace between two samples, both included. The mean is that of the
// samples, whatever time lies between them.
struct SpanFigures {
    double difference = 0.0;  // from the first to the last
    double lowest = 0.0;
    double highest = 0.0;
    double mean = 0.0;
};

// The trace must show the same thing from `first` to `last`; `first` is not after `last`.
SpanFigures FiguresOf(const Recording& recording, int trace, std::int64_t first, std::int64_t last);

}  // namespace plotvane
