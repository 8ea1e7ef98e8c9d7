#pragma once

#include <span>

#include "base/Colour.h"
#include "plot/chart/ChartGeometry.h"
#include "plot/chart/ChartLabels.h"
#include "plot/chart/ChartPicture.h"

namespace plotvane {

// How many dotted lines the plot has.
struct GridCounts {
    int vertical = 6;
    int horizontal = 4;
};

// Draws the part of the chart that does not scroll: frame, dotted grid and labels, on a picture that is
// already filled with the background. This is expensive (some thousand dots, up to 24 texts), so it is done
// only when something in it changes.
void DrawChartGrid(const ChartPicture& picture, const ChartGeometry& geometry, const GridCounts& counts,
                   Colour gridColour, std::span<const ChartLabel> labels);

}  // namespace plotvane
