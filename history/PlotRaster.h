#pragma once

#include <vector>

#include "base/Colour.h"
#include "history/TraceColumns.h"
#include "plot/chart/ChartGeometry.h"
#include "plot/chart/ChartPixels.h"

namespace plotvane {

// Rows of the plot, counted from its top, that a trace covers in one column, both included. Nothing where
// `top` is below `bottom`.
struct RowSpan {
    int top = 1;
    int bottom = 0;

    bool IsEmpty() const { return top > bottom; }
    int Count() const { return bottom - top + 1; }  // of an empty one 0 or less
    void Include(const RowSpan& other);
    bool operator==(const RowSpan&) const = default;
};

// The limits of a trace, and the rows of a plot: the upper limit lies in row 0, the lower one in the last.
// Values beyond them lie outside of the plot. Limits may stand in either order; where they are equal, every
// value lies on the last row, above or below it.
class RowScale {
public:
    RowScale(double lower, double upper, int rows);

    int RowOf(double value) const;
    RowSpan RowsOf(const ColumnSpan& span) const;

private:
    double m_lower;
    double m_perUnit;  // rows
    int m_lastRow;
};

// A trace on the plot: its rows in each column. Columns that are missing at the end are empty.
struct PlottedTrace {
    Colour colour = kBlack;
    std::vector<RowSpan> columns;

    bool operator==(const PlottedTrace&) const = default;
};

// Ground and grid of the plot. The grid is dotted: rows and columns count from the plot's top left corner.
struct PlotGround {
    Colour background = kBlack;
    Colour grid = kWhite;
    std::vector<int> gridRows;
    std::vector<int> gridColumns;

    bool operator==(const PlotGround&) const = default;
};

// A plot: the ground, then the traces, each over the ones before it, with lines of a thickness in pixels
// (1 and more).
struct TracePlot {
    PixelRect place;  // in the picture
    PlotGround ground;
    std::vector<PlottedTrace> traces;
    int thickness = 1;
    int kept = 0;  // columns from the left that traces of the same colours have had in the plot before
};

// Paints what lies in `part` of the picture, and nothing else. The plot is clipped to the picture.
void PaintPlot(const ChartPixels& picture, const TracePlot& plot, const PixelRect& part);

// Columns of the plot, from `begin` to before `end`.
struct ColumnRange {
    int begin = 0;
    int end = 0;

    bool IsEmpty() const { return begin >= end; }
};

// The columns in which the traces of a plot differ from those of the plot before, with the reach of their
// thickness. All columns where the plots differ in anything else.
ColumnRange ChangedColumns(const TracePlot& plot, const TracePlot& before);

}  // namespace plotvane
