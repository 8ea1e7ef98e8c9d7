#pragma once

#include <optional>

#include "base/Colour.h"
#include "plot/chart/ChartGeometry.h"
#include "plot/chart/FarLine.h"

namespace plotvane {

// One line of a trace, and what must be erased after it so that it ends at the plot's edges.
struct TraceSegment {
    PixelLine line;  // the line primitive does not draw the last pixel
    std::optional<PixelRect> wipedAbove;
    std::optional<PixelRect> wipedBelow;

    bool operator==(const TraceSegment&) const = default;
};

// The numbers of one trace: its limits, its last two values and where its line ended.
struct PlotTrace {
    Colour colour = kBlack;
    double current = 0.0;         // the value appended last
    double previous = 0.0;        // the value drawn last
    int previousY = -1;           // row of `previous`; computed again when below 1
    double lower = 0.0;           // at the bottom edge of the plot
    double upper = 100.0;         // at the top edge; may be below `lower`
    double range = 100.0;         // upper - lower
    double verticalFactor = 0.0;  // rows per unit of the value; 0 when the range is 0

    void SetRange(double newLower, double newUpper, int plotHeight);
    void FitTo(int plotHeight);

    // The row of a value. Values outside the limits are outside the plot, at most 1,000,000 rows below or
    // above its bottom. What is not a number is on the bottom row.
    int RowOfValue(double value, int plotBottom) const;

    // The line from the previous value to the current one, `shift` (0 or more) pixels wide, at the right edge
    // of the plot. Afterwards the current value is the previous one.
    TraceSegment TakeSegment(const ChartGeometry& geometry, int shift);

    // Makes the current value the previous one, without a line.
    void TakeGap(const ChartGeometry& geometry);
};

}  // namespace plotvane
