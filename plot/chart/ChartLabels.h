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

// A text left of the plot. `right` is where it ends; y is the top of its character cells or their baseline.
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
    bool showUnits = true;           // units behind the limits
    bool showZeros = false;          // lower limits that are zero are written too
    bool tenChannels = false;        // in the ten-channel layout the limits are not written
    std::string_view customMinimum;  // stands in place of the limits when it is not empty
    std::string_view customMaximum;
    Colour scaleColour = kWhite;  // of the 0-128-255 scale while nothing is assigned
};

// The limits of all active slots, in the order in which they are drawn, and the 0-128-255 scale as long as
// slot 0 has no field.
//
// The n-th active slot is labelled with the limits and the colour of trace n but with its own unit. The two
// differ when an inactive slot precedes an active one; kept on purpose.
std::vector<ChartLabel> ChartLabels(const SlotTable& slots, std::span<const PlotTrace> traces,
                                    const LabelRules& rules, const PixelRect& plot);

}  // namespace plotvane
