#include "history/ColumnPainter.h"

#include <algorithm>
#include <cstddef>

namespace plotvane {
namespace {

constexpr int kDotDistancePx = 4;

std::size_t Index(int number) {
    return static_cast<std::size_t>(number);
}

}  // namespace

LineReach::LineReach(int thickness)
    : before((std::max(thickness, 1) - 1) / 2), after(std::max(thickness, 1) / 2) {}

ColumnPainter::Grounds::Grounds(const PlotGround& ground, int rows)
    : gridColumns(ground.gridColumns), plain(Index(rows), PixelOf(ground.background)), dotted(plain) {
    const std::uint32_t dot = PixelOf(ground.grid);
    for (const int row : ground.gridRows) {
        if (row >= 0 && row < rows) dotted[Index(row)] = dot;
    }
    ofGrid = plain;
    for (int row = 0; row < rows; row += kDotDistancePx) ofGrid[Index(row)] = dot;
    std::ranges::sort(gridColumns);
}

const std::vector<std::uint32_t>& ColumnPainter::Grounds::Of(int column) const {
    if (std::ranges::binary_search(gridColumns, column)) return ofGrid;
    return column % kDotDistancePx == 0 ? dotted : plain;
}

ColumnPainter::ColumnPainter(const TracePlot& plot, int rows)
    : m_plot(plot), m_reach(plot.thickness), m_grounds(plot.ground, rows), m_lastRow(rows - 1) {}

void ColumnPainter::Paint(int column, std::uint32_t* out) {
    m_pieces.clear();
    m_covered = {};
    for (auto trace = m_plot.traces.rbegin(); trace != m_plot.traces.rend(); ++trace)
        AddTrace(*trace, column);
    std::ranges::copy(m_grounds.Of(column), out);
    for (auto piece = m_pieces.rbegin(); piece != m_pieces.rend(); ++piece)
        std::fill_n(out + piece->rows.top, piece->rows.Count(), piece->pixel);
}

void ColumnPainter::AddTrace(const PlottedTrace& trace, int column) {
    const std::uint32_t pixel = PixelOf(trace.colour);
    const int begin = std::max(column - m_reach.after, 0);
    const int end = std::min(column + m_reach.before + 1, static_cast<int>(trace.columns.size()));
    for (int near = begin; near < end; ++near) {
        const RowSpan& span = trace.columns[Index(near)];
        if (span.IsEmpty()) continue;
        AddRows({std::max(span.top - m_reach.before, 0), std::min(span.bottom + m_reach.after, m_lastRow)},
                pixel);
    }
}

// The rows added before hide these where both meet; what they hide is left out.
void ColumnPainter::AddRows(const RowSpan& rows, std::uint32_t pixel) {
    const bool isApart = rows.bottom < m_covered.top || rows.top > m_covered.bottom;
    if (isApart) {
        AddPiece(rows, pixel);
        if (rows.Count() > m_covered.Count()) m_covered = rows;
    } else {
        AddPiece({rows.top, m_covered.top - 1}, pixel);
        AddPiece({m_covered.bottom + 1, rows.bottom}, pixel);
        m_covered.Include(rows);
    }
}

void ColumnPainter::AddPiece(const RowSpan& rows, std::uint32_t pixel) {
    if (!rows.IsEmpty()) m_pieces.push_back({rows, pixel});
}

}  // namespace plotvane
