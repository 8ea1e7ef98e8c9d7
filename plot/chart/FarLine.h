#pragma once

#include <optional>

#include "plot/chart/ChartGeometry.h"

namespace plotvane {

struct PixelLine {
    PixelPoint from;
    PixelPoint to;

    bool operator==(const PixelLine&) const = default;
};

// A line that covers the same pixels in the rows from `top` to `bottom`, both included, but is no longer than
// it must be beyond them: about 4 times those rows in all, or 2 rows for each column that the line crosses.
// Nothing if the line does not reach these rows. An end inside them stays where it is.
//
// Cutting the line at some row would not do. The new end has to be a pixel, and the line to that pixel
// changes columns in other rows than the whole line does.
std::optional<PixelLine> ShortenFarLine(const PixelLine& line, int top, int bottom);

}  // namespace plotvane
