#include "plot/chart/PlotTrace.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace plotvane {
namespace {

// Far outside every screen, and far below the limits of the line primitive.
constexpr double kFarthestRow = 1'000'000.0;

}  // namespace

void PlotTrace::SetRange(double newLower, double newUpper, int plotHeight) {
    lower = newLower;
    upper = newUpper;
    range = upper - lower;
    FitTo(plotHeight);
}

void PlotTrace::FitTo(int plotHeight) {
    verticalFactor = range == 0.0 ? 0.0 : plotHeight / range;
}

int PlotTrace::RowOfValue(double value, int plotBottom) const {
    // Multiplying with the stored factor is part of the rule: 50 of 0..250 on 290 rows is 57.999... and so
    // row 57. Multiplying before dividing would give 58.
    const double rows = std::trunc((value - lower) * verticalFactor);
    if (std::isnan(rows)) return plotBottom;
    return plotBottom - static_cast<int>(std::clamp(rows, -kFarthestRow, kFarthestRow));
}

TraceSegment PlotTrace::TakeSegment(const ChartGeometry& geometry, int shift) {
    const PixelRect& plot = geometry.Plot();
    const PixelRect& client = geometry.Client();

    const int x0 = plot.right - shift;
    // A line that ended above the first row starts from its value again, so that a changed range takes
    // effect.
    const int y0 = previousY < 1 ? RowOfValue(previous, plot.bottom) : previousY;
    int x1 = plot.right;
    int y1 = RowOfValue(current, plot.bottom);
    previousY = y1;
    previous = current;

    // One pixel further, because the line primitive does not draw the last pixel.
    const int dy = y0 - y1;
    if (std::abs(dy) < shift) {
        ++x1;
    } else {
        y1 += dy > 0 ? -1 : 1;
    }

    TraceSegment segment{.line = {{x0 - 1, y0}, {x1 - 1, y1}}, .wipedAbove = {}, .wipedBelow = {}};
    // Above the plot, the erased strip includes the plot's top row. Below, the plot's bottom row stays, so
    // that a trace at its lower limit is visible. This is kept on purpose.
    if (y0 <= plot.top || y1 <= plot.top) segment.wipedAbove = {x0, client.top, x1 + 1, plot.top + 1};
    if (y0 >= plot.bottom || y1 >= plot.bottom) {
        segment.wipedBelow = {x0, plot.bottom + 1, x1 + 1, client.bottom + 1};
    }
    return segment;
}

void PlotTrace::TakeGap(const ChartGeometry& geometry) {
    previousY = RowOfValue(current, geometry.Plot().bottom);
    previous = current;
}

}  // namespace plotvane
