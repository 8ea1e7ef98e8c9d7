#include "history/PlotRaster.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace plotvane {
namespace {

constexpr int kDotDistancePx = 4;
constexpr double kFarthestRow = 1'000'000.0;

std::size_t Index(int number) {
    return static_cast<std::size_t>(number);
}

// A few columns of the plot, each in a piece: a trace covers runs of a column, and in a picture, which lies
// in rows, each pixel of such a run would be far from the one before.
class Strip {
public:
    static constexpr int kColumns = 16;  // of a row they fill a line of the processor's cache

    explicit Strip(int rows)
        : m_rows(rows), m_columnLength(OddLines(rows)), m_pixels(kColumns * m_columnLength) {}

    int Rows() const { return m_rows; }
    std::uint32_t* Column(int column) { return m_pixels.data() + Index(column) * m_columnLength; }

    // Copies the first columns to a place in the picture. `top` is the row of the picture at which the strip
    // begins, at or above the place.
    void CopyTo(const ChartPixels& picture, const PixelRect& place, int top) const {
        for (int y = place.top; y < place.bottom; ++y) {
            std::uint32_t* const out = picture.Row(y) + place.left;
            const std::uint32_t* const in = m_pixels.data() + (y - top);
            if (place.Width() == kColumns) {
                // Nearly always: a number that the compiler knows takes half the time.
                CopyRow<kColumns>(in, out, kColumns);
            } else {
                CopyRow<0>(in, out, place.Width());
            }
        }
    }

private:
    template <int kCount>
    void CopyRow(const std::uint32_t* in, std::uint32_t* out, int columns) const {
        const int count = kCount ? kCount : columns;
        for (int column = 0; column < count; ++column) out[column] = in[Index(column) * m_columnLength];
    }

    // An odd number of cache lines: with a power of two all columns would want the same place in the cache.
    static std::size_t OddLines(int rows) { return ((Index(rows) / kColumns + 1) | 1) * kColumns; }

    int m_rows;
    std::size_t m_columnLength;
    std::vector<std::uint32_t> m_pixels;
};

// The ground of a column where the dots of the grid's rows do not fall, where they do, and of a column of the
// grid.
class GroundColumns {
public:
    GroundColumns(const PlotGround& ground, int rows)
        : m_columns(ground.gridColumns), m_plain(Index(rows), PixelOf(ground.background)), m_dotted(m_plain) {
        const std::uint32_t dot = PixelOf(ground.grid);
        for (const int row : ground.gridRows) {
            if (row >= 0 && row < rows) m_dotted[Index(row)] = dot;
        }
        m_ofGrid = m_plain;
        for (int row = 0; row < rows; row += kDotDistancePx) m_ofGrid[Index(row)] = dot;
        std::ranges::sort(m_columns);
    }

    const std::vector<std::uint32_t>& Of(int column) const {
        if (std::ranges::binary_search(m_columns, column)) return m_ofGrid;
        return column % kDotDistancePx == 0 ? m_dotted : m_plain;
    }

private:
    std::vector<int> m_columns;
    std::vector<std::uint32_t> m_plain;
    std::vector<std::uint32_t> m_dotted;
    std::vector<std::uint32_t> m_ofGrid;
};

// How far a line reaches to each side of the pixels that it is made of.
struct Reach {
    explicit Reach(int thickness)
        : before((std::max(thickness, 1) - 1) / 2), after(std::max(thickness, 1) / 2) {}
    int before;
    int after;
};

void PaintTrace(Strip& strip, int first, int columns, const PlottedTrace& trace, const Reach& reach) {
    const std::uint32_t pixel = PixelOf(trace.colour);
    const int begin = std::max(first - reach.after, 0);
    const int end = std::min(first + columns + reach.before, static_cast<int>(trace.columns.size()));
    for (int column = begin; column < end; ++column) {
        const RowSpan& span = trace.columns[Index(column)];
        if (span.IsEmpty()) continue;
        const int top = std::max(span.top - reach.before, 0);
        const int bottom = std::min(span.bottom + reach.after, strip.Rows() - 1);
        if (top > bottom) continue;
        const int left = std::max(column - reach.before - first, 0);
        const int right = std::min(column + reach.after - first, columns - 1);
        for (int x = left; x <= right; ++x) std::fill_n(strip.Column(x) + top, bottom - top + 1, pixel);
    }
}

// Those that differ, without the reach.
ColumnRange ChangedColumns(const PlottedTrace& trace, const PlottedTrace& other) {
    const auto size = static_cast<int>(std::max(trace.columns.size(), other.columns.size()));
    if (trace.colour != other.colour || trace.columns.size() != other.columns.size()) return {0, size};
    const auto isSame = [&](int column) {
        return trace.columns[Index(column)] == other.columns[Index(column)];
    };
    ColumnRange changed{0, size};
    while (changed.begin < size && isSame(changed.begin)) ++changed.begin;
    while (changed.end > changed.begin && isSame(changed.end - 1)) --changed.end;
    return changed;
}

}  // namespace

void RowSpan::Include(const RowSpan& other) {
    if (IsEmpty()) {
        *this = other;
    } else if (!other.IsEmpty()) {
        top = std::min(top, other.top);
        bottom = std::max(bottom, other.bottom);
    }
}

RowScale::RowScale(double lower, double upper, int rows)
    : m_lower(lower),
      m_perUnit(upper == lower ? std::numeric_limits<double>::infinity() : (rows - 1) / (upper - lower)),
      m_lastRow(rows - 1) {}

int RowScale::RowOf(double value) const {
    const double above = value == m_lower ? 0.0 : (value - m_lower) * m_perUnit;
    if (std::isnan(above)) return m_lastRow;
    return m_lastRow - static_cast<int>(std::clamp(above, -kFarthestRow, kFarthestRow));
}

RowSpan RowScale::RowsOf(const ColumnSpan& span) const {
    if (span.IsEmpty()) return {};
    const int one = RowOf(span.lowest);
    const int other = span.highest == span.lowest ? one : RowOf(span.highest);
    return {std::min(one, other), std::max(one, other)};
}

void PaintPlot(const ChartPixels& picture, const TracePlot& plot, const PixelRect& part) {
    // The traces count from the plot's top left corner, so that is never moved.
    if (plot.place.left < 0 || plot.place.top < 0) return;
    const PixelRect place = Intersection(plot.place, {0, 0, picture.width, picture.height});
    const PixelRect painted = Intersection(place, part);
    if (painted.IsEmpty()) return;
    const Reach reach(plot.thickness);
    const GroundColumns grounds(plot.ground, place.Height());
    Strip strip(place.Height());
    for (int left = painted.left; left < painted.right; left += Strip::kColumns) {
        const int first = left - place.left;
        const int columns = std::min(painted.right - left, Strip::kColumns);
        for (int x = 0; x < columns; ++x) std::ranges::copy(grounds.Of(first + x), strip.Column(x));
        for (const PlottedTrace& trace : plot.traces) PaintTrace(strip, first, columns, trace, reach);
        strip.CopyTo(picture, {left, painted.top, left + columns, painted.bottom}, place.top);
    }
}

ColumnRange ChangedColumns(const TracePlot& one, const TracePlot& other) {
    const int width = one.place.Width();
    if (one.place != other.place || one.ground != other.ground || one.thickness != other.thickness ||
        one.traces.size() != other.traces.size())
        return {0, width};
    ColumnRange changed{width, 0};
    for (std::size_t i = 0; i < one.traces.size(); ++i) {
        const ColumnRange ofTrace = ChangedColumns(one.traces[i], other.traces[i]);
        if (ofTrace.IsEmpty()) continue;
        changed = {std::min(changed.begin, ofTrace.begin), std::max(changed.end, ofTrace.end)};
    }
    if (changed.IsEmpty()) return {};
    const Reach reach(one.thickness);
    return {std::max(changed.begin - reach.before, 0), std::min(changed.end + reach.after, width)};
}

}  // namespace plotvane
