#pragma once

#include <cstdint>
#include <vector>

#include "history/PlotRaster.h"

namespace plotvane {

// How far a line of a thickness in pixels (1 and more) reaches to each side of the pixels that it is made of.
struct LineReach {
    explicit LineReach(int thickness);
    int before;
    int after;
};

// Paints the columns of a plot, one at a time. Where twelve traces fill a column, one of them hides
// the others: what is hidden is left out before anything is painted.
class ColumnPainter {
public:
    // Of the plot, which must outlive this, only so many rows are painted, at least one.
    ColumnPainter(const TracePlot& plot, int rows);

    // `out` has room for all rows. The column counts from the plot's left edge.
    void Paint(int column, std::uint32_t* out);

private:
    struct Piece {
        RowSpan rows;
        std::uint32_t pixel;
    };

    // The ground of a column where the dots of the grid's rows do not fall, where they do, and of a column of
    // the grid.
    struct Grounds {
        Grounds(const PlotGround& ground, int rows);
        const std::vector<std::uint32_t>& Of(int column) const;

        std::vector<int> gridColumns;
        std::vector<std::uint32_t> plain;
        std::vector<std::uint32_t> dotted;
        std::vector<std::uint32_t> ofGrid;
    };

    void AddTrace(const PlottedTrace& trace, int column);
    void AddRows(const RowSpan& rows, std::uint32_t pixel);
    void AddPiece(const RowSpan& rows, std::uint32_t pixel);

    const TracePlot& m_plot;
    const LineReach m_reach;
    const Grounds m_grounds;
    const int m_lastRow;
    std::vector<Piece> m_pieces;  // of the column, from the front to the back
    RowSpan m_covered;            // rows that these pieces leave no gap in
};

}  // namespace plotvane
