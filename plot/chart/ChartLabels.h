#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/Colour.h"
#include "model/FieldSlot.h"
#include "plot/chart/ChartGeometry.h"
#include "plot/chart/PlotTrace.h"

namespace plotvane {

// A text left of the plot. It ends at `right`; y is the top of its characters or their baseline.
struct ChartLabel {
    enum class Upright { Top, Baseline };

    std::string text;  // Windows-1252
    Colour colour = kBlack;
    int right = 0;
    int y = 0;
    Upright upright = Upright::Top;

    bool operator==(const ChartLabel&) const = default;
};

struct LabelRules {
    bool showUnits = true;           // units after the limits
    bool showZeros = false;          // lower limits of zero are written too
    bool tenChannels = false;        // the ten-channel layout has no limits
    std::string_view customMinimum;  // replaces the limits unless it is empty
    std::string_view customMaximum;
    Colour scaleColour = kWhite;  // of the 0-128-255 scale, which shows while nothing is assigned
};

// The limits of all active slots in drawing order, or the 0-128-255 scale while slot 0 has no field.
//
// The n-th active slot is labelled with the limits and the colour of trace n, but with its own unit. The two
// differ when an inactive slot precedes an active one. This is kept on purpose.
std::vector<ChartLabel> ChartLabels(const SlotTable& slots, std::span<const PlotTrace> traces,
                                    const LabelRules& rules, const PixelRect& plot);

}  // namespace plotvane
