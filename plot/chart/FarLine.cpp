#include "plot/chart/FarLine.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <utility>

namespace plotvane {
namespace {

// A line that goes down, and so steeply that it moves by less than half a column in all the rows that count.
// Its pixels depend only on the row, if any, in which it reaches the middle or the edge of a column. Any line
// that does the same in that row may replace it.
struct SteepLine {
    PixelPoint upper;
    PixelPoint lower;
    int direction;  // 1: to the right, -1: to the left

    std::int64_t Columns() const { return std::abs(lower.x - upper.x); }
    std::int64_t Rows() const { return lower.y - upper.y; }
};

PixelPoint MovedBy(PixelPoint point, std::int64_t columns, std::int64_t rows) {
    return {static_cast<int>(point.x + columns), static_cast<int>(point.y + rows)};
}

// Both ends are outside the rows.
void ShortenBothEnds(SteepLine& line, int top, int bottom) {
    const std::int64_t rows = bottom - top + 1;
    // In half columns and rows from the upper end: the first half column that the line reaches in row `top`
    // or below, and twice the row in which it does. An odd number means a place between two rows.
    const std::int64_t halves = 2 * line.Columns();
    const std::int64_t half = (halves * (top - line.upper.y) + line.Rows() - 1) / line.Rows();
    const std::int64_t place = half * line.Rows();
    const std::int64_t twiceRow = 2 * (place / halves) + (place % halves == 0 ? 0 : 1);
    const std::int64_t twiceRowBehind = 2 * (std::int64_t{bottom} - line.upper.y + 1);
    // As far above that place as below it, and from column to column.
    const std::int64_t middle = std::min(twiceRow, twiceRowBehind);
    const std::int64_t first = middle / 2 - 2 * rows - 2;
    const PixelPoint start = line.upper;
    line.upper = MovedBy(start, line.direction * ((half + 1) / 2 - 1), first);
    line.lower = MovedBy(start, line.direction * (half / 2 + 1), middle - first);
}

void Shorten(SteepLine& line, int top, int bottom) {
    const int rows = bottom - top + 1;
    if (line.Columns() == 0) {
        line.upper.y = std::max(line.upper.y, top - 1);
        line.lower.y = std::min(line.lower.y, bottom + 1);
    } else if (line.upper.y >= top) {
        line.lower = MovedBy(line.upper, line.direction, 2 * rows);
    } else if (line.lower.y <= bottom) {
        line.upper = MovedBy(line.lower, -line.direction, -2 * rows);
    } else {
        ShortenBothEnds(line, top, bottom);
    }
}

}  // namespace

std::optional<PixelLine> ShortenFarLine(const PixelLine& line, int top, int bottom) {
    const bool goesDown = line.from.y <= line.to.y;
    SteepLine steep{goesDown ? line.from : line.to, goesDown ? line.to : line.from, 1};
    if (steep.lower.x < steep.upper.x) steep.direction = -1;
    if (steep.lower.y < top || steep.upper.y > bottom) return std::nullopt;

    const std::int64_t rows = bottom - top + 1;
    if (steep.Rows() <= 2 * rows * steep.Columns()) return line;  // not steep enough, and not so far
    Shorten(steep, top, bottom);
    return goesDown ? PixelLine{steep.upper, steep.lower} : PixelLine{steep.lower, steep.upper};
}

}  // namespace plotvane
