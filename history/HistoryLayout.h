#pragma once

#include <optional>

#include "plot/chart/ChartGeometry.h"

namespace plotvane {

// Where things lie in the window that looks back, in pixels of its client area: the plot with its scale at
// the left and its times below, the list of traces at the right, a line of text at the bottom.
class HistoryLayout {
public:
    static constexpr int kGridRows = 9;         // as the chart has it
    static constexpr int kTickDistancePx = 90;  // of the times, at least

    // `lineHeight` is that of a line of text, above 0; `traces` is how many the list has. A client too small
    // has a plot without an inside.
    HistoryLayout(int clientWidth, int clientHeight, int lineHeight, int traces);

    const PixelRect& Client() const { return m_client; }
    const PixelRect& Plot() const { return m_plot; }
    const PixelRect& Times() const { return m_times; }
    const PixelRect& List() const { return m_list; }
    const PixelRect& Status() const { return m_status; }
    int LineHeight() const { return m_lineHeight; }

    // Lines of text that each trace of the list gets: 3, or as many as there is room for, at least 1.
    int LinesOfTrace() const { return m_lines; }

    // The row of a line of the grid, 1..kGridRows, counted from the plot's top. 0 and kGridRows + 1 are the
    // ends of the plot.
    int GridRow(int i) const { return m_plot.Height() * i / (kGridRows + 1); }

    // Of the list's entries, counted from 0.
    PixelRect LineOf(int entry, int line) const;
    PixelRect MarkOf(int entry) const;    // the check mark
    PixelRect SwatchOf(int entry) const;  // the colour
    std::optional<int> EntryAt(int x, int y) const;
    bool IsOnMark(int entry, int x, int y) const;

    bool operator==(const HistoryLayout&) const = default;

private:
    PixelRect EntryOf(int entry) const;

    PixelRect m_client;
    PixelRect m_plot;
    PixelRect m_times;
    PixelRect m_list;
    PixelRect m_status;
    int m_lineHeight;
    int m_traces;
    int m_lines = 1;
};

}  // namespace plotvane
