#include "history/PlotRaster.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <new>

#include "history/ColumnPainter.h"

namespace plotvane {
namespace {

constexpr double kFarthestRow = 1'000'000.0;

std::size_t Index(int number) {
    return static_cast<std::size_t>(number);
}

// Some columns of the plot, each in a piece: a trace covers runs of a column, and in a picture, which lies in
// rows, each pixel of such a run would be far from the one before.
class Strip {
public:
    // With up to 64 columns, a row of them fills several lines of the processor's cache, and all of them
    // still fit in it. Where there is no memory for so many, the strip has fewer. Throws if there is none for
    // one.
    Strip(int wanted, int rows) : m_columns(std::min(wanted, 64)), m_columnLength(OddLines(rows)) {
        while (m_columns > 1 && !m_pixels) {
            m_pixels.reset(new (std::nothrow) std::uint32_t[Length()]);
            if (!m_pixels) m_columns /= 2;
        }
        if (!m_pixels) m_pixels = std::make_unique_for_overwrite<std::uint32_t[]>(Length());
    }

    int Columns() const { return m_columns; }
    std::uint32_t* Column(int column) { return &m_pixels[Index(column) * m_columnLength]; }

    // Copies the first columns to a place in the picture. `top` is the row of the picture at which the strip
    // begins, at or above the place.
    void CopyTo(const ChartPixels& picture, const PixelRect& place, int top) const {
        for (int y = place.top; y < place.bottom; ++y) {
            std::uint32_t* const out = picture.Row(y) + place.left;
            std::size_t at = Index(y - top);
            for (int column = 0; column < place.Width(); ++column, at += m_columnLength)
                out[column] = m_pixels[at];
        }
    }

private:
    std::size_t Length() const { return Index(m_columns) * m_columnLength; }

    // An odd number of cache lines: with a power of two all columns would want the same place in the cache.
    static std::size_t OddLines(int rows) {
        constexpr std::size_t kPixelsOfLine = 16;
        return ((Index(rows) / kPixelsOfLine + 1) | 1) * kPixelsOfLine;
    }

    int m_columns;
    std::size_t m_columnLength;
    std::unique_ptr<std::uint32_t[]> m_pixels;
};

// From the first to the last that differ, without the reach. The first columns are known to be the same.
ColumnRange ChangedColumns(const PlottedTrace& trace, const PlottedTrace& before, int same) {
    const auto size = static_cast<int>(std::max(trace.columns.size(), before.columns.size()));
    if (trace.colour != before.colour || trace.columns.size() != before.columns.size()) return {0, size};
    const auto isSame = [&](int column) {
        return trace.columns[Index(column)] == before.columns[Index(column)];
    };
    ColumnRange changed{std::min(same, size), size};
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
    ColumnPainter painter(plot, place.Height());
    Strip strip(painted.Width(), place.Height());
    for (int left = painted.left; left < painted.right; left += strip.Columns()) {
        const int columns = std::min(painted.right - left, strip.Columns());
        for (int x = 0; x < columns; ++x) painter.Paint(left + x - place.left, strip.Column(x));
        strip.CopyTo(picture, {left, painted.top, left + columns, painted.bottom}, place.top);
    }
}

ColumnRange ChangedColumns(const TracePlot& plot, const TracePlot& before) {
    const int width = plot.place.Width();
    if (plot.place != before.place || plot.ground != before.ground || plot.thickness != before.thickness ||
        plot.traces.size() != before.traces.size())
        return {0, width};
    ColumnRange changed{width, 0};
    for (std::size_t i = 0; i < plot.traces.size(); ++i) {
        const ColumnRange ofTrace = ChangedColumns(plot.traces[i], before.traces[i], plot.kept);
        if (ofTrace.IsEmpty()) continue;
        changed = {std::min(changed.begin, ofTrace.begin), std::max(changed.end, ofTrace.end)};
    }
    if (changed.IsEmpty()) return {};
    const LineReach reach(plot.thickness);
    return {std::max(changed.begin - reach.before, 0), std::min(changed.end + reach.after, width)};
}

}  // namespace plotvane
