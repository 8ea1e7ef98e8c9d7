#pragma once

#include <algorithm>
#include <array>

#include "base/Colour.h"
#include "model/FieldSlot.h"

namespace plotvane {

// The colours that the Preferences dialog offers by name, in list order. The names are texts
// IDS_PRESET_COLOUR_FIRST + index. The first twelve are the default trace colours.
constexpr std::array<Colour, 14> kPresetColours = {
    MakeColour(255, 0, 0),      // Red
    MakeColour(0, 255, 0),      // LGreen
    MakeColour(255, 255, 0),    // Yellow
    MakeColour(192, 192, 255),  // LBlue
    MakeColour(255, 160, 0),    // Orange
    MakeColour(0, 255, 255),    // Cyan
    MakeColour(0, 160, 0),      // DkGreen
    MakeColour(0, 0, 127),      // DkBlue
    MakeColour(160, 96, 0),     // Brown
    MakeColour(255, 192, 192),  // Pink
    MakeColour(0, 160, 255),    // Blue
    MakeColour(0, 160, 160),    // DkCyan
    MakeColour(0, 0, 0),        // Black
    MakeColour(255, 255, 255),  // White
};

constexpr IndexedArray<Colour, kSlotCount> DefaultTraceColours() {
    IndexedArray<Colour, kSlotCount> colours{};
    std::copy_n(kPresetColours.begin(), kSlotCount, colours.begin());
    return colours;
}

}  // namespace plotvane
