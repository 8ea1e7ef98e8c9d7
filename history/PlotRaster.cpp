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

    void CopyTo(const ChartPixels& picture, int x, int y, int columns) const {
        for (int row = 0; row < m_rows; ++row) {
            std::uint32_t* const out =
                picture.pixels + static_cast<std::ptrdiff_t>(y + row) * picture.width + x;
            const std::uint32_t* const in = m_pixels.data() + row;
            if (columns == kColumns) {
                // All but the last strip: a number that the compiler knows takes half the time.
                CopyRow<kColumns>(in, out, kColumns);
            } else {
                CopyRow<0>(in, out, columns);
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
    explicit Reach(int thickness) : before((thickness - 1) / 2), after(thickness / 2) {}
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

PixelRect ClippedTo(const ChartPixels& picture, const PixelRect& plot) {
    // The traces count from the plot's top left corner, so that is never moved.
    if (plot.left < 0 || plot.top < 0) return {};
    return {plot.left, plot.top, std::min(plot.right, picture.width), std::min(plot.bottom, picture.height)};
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
    const double above = value == m_lower ? 0.0 : std::trunc((value - m_lower) * m_perUnit);
    if (std::isnan(above)) return m_lastRow;
    return m_lastRow - static_cast<int>(std::clamp(above, -kFarthestRow, kFarthestRow));
}

RowSpan RowScale::RowsOf(const ColumnSpan& span) const {
    if (span.IsEmpty()) return {};
    const int one = RowOf(span.lowest);
    const int other = RowOf(span.highest);
    return {std::min(one, other), std::max(one, other)};
}

void PaintPlot(const ChartPixels& picture, const PixelRect& plot, const PlotGround& ground,
               std::span<const PlottedTrace> traces, int thickness) {
    const PixelRect place = ClippedTo(picture, plot);
    if (place.IsEmpty()) return;
    const Reach reach(std::max(thickness, 1));
    const GroundColumns grounds(ground, place.Height());
    Strip strip(place.Height());
    for (int first = 0; first < place.Width(); first += Strip::kColumns) {
        const int columns = std::min(place.Width() - first, Strip::kColumns);
        for (int x = 0; x < columns; ++x) std::ranges::copy(grounds.Of(first + x), strip.Column(x));
        for (const PlottedTrace& trace : traces) PaintTrace(strip, first, columns, trace, reach);
        strip.CopyTo(picture, place.left + first, place.top, columns);
    }
}

}  // namespace plotvane
