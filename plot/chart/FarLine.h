#pragma once

#include <optional>

#include "plot/chart/ChartGeometry.h"

namespace plotvane {

struct PixelLine {
    PixelPoint from;
    PixelPoint to;

    bool operator==(const PixelLine&) const = default;
};

// A line that covers the same pixels in the rows from `top` to `bottom`, both included, but goes no further
// beyond them than it must: 4 times those rows and a few in all, or 2 times for each column that the line
// crosses. Nothing if the line does not reach these rows. An end that lies inside stays where it is.
//
// To cut a far line at some row would not do: the end has to be a pixel, and the line that leads there
// crosses from one column to the next in other rows than the whole line.
std::optional<PixelLine> ShortenFarLine(const PixelLine& line, int top, int bottom);

}  // namespace plotvane
