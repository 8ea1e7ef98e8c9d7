#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "history/Recording.h"

namespace plotvane {

// What the tip over the chart says of a sample. Texts are Windows-1252.
struct ReadOut {
    struct Line {
        int trace;
        std::string name;
        std::string value;  // with the unit

        bool operator==(const Line&) const = default;
    };

    std::string age;  // before the newest sample
    std::vector<Line> lines;

    // The age, then a line for each trace.
    std::string Text() const;

    bool operator==(const ReadOut&) const = default;
};

// The sample must be kept.
ReadOut ReadOutOf(const Recording& recording, std::int64_t sample);

}  // namespace plotvane
