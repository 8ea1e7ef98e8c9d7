#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "history/LookBack.h"

namespace plotvane {

// Where slots got something else to show.
struct SlotMark {
    int column = 0;    // of the plot
    std::string text;  // the names of what they show from there on
};

// Those in view.
std::vector<SlotMark> SlotMarksOf(const LookBack& state);

}  // namespace plotvane
