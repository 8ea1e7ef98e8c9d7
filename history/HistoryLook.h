#pragma once

#include <array>
#include <optional>

#include "base/Colour.h"
#include "model/FieldSlot.h"
#include "scaling/Prefs.h"

namespace plotvane {

// What the windows of the recording take over from the chart.
struct HistoryLook {
    Colour background = kBlack;
    Colour foreground = kWhite;  // grid, frame and texts
    std::array<Colour, kSlotCount> traces{};
    int thickness = 1;  // of the traces, in pixels

    // Nearer to the background, for what shall not catch the eye.
    Colour Faded(Colour colour) const;

    // A trace's, while another one or none may be in front.
    Colour ColourOf(int trace, std::optional<int> front) const;

    bool operator==(const HistoryLook&) const = default;
};
HistoryLook LookOf(const Prefs& prefs);

}  // namespace plotvane
