#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/support/system/RemoteWindow.h"

namespace plotvane::test {

// A double click of the real mouse in the middle of the chart.
void DoubleClickChart(const RemoteWindow& main);

// The window of the program that looks back; an empty one if there is none.
RemoteWindow FindHistory(const RemoteWindow& main);

// The same, waited for.
RemoteWindow OpenedHistory(const RemoteWindow& main);

// Opens it by a double click, and waits for it.
RemoteWindow OpenHistory(const RemoteWindow& main);

// Puts the window in front and waits until keys go to it: the window manager moves the focus in its own time.
::testing::AssertionResult GiveKeyboard(const RemoteWindow& history);

// Presses Ctrl+Shift+C in the window and returns the table that it puts on the clipboard.
std::wstring TableOf(const RemoteWindow& history);

// The plot of that window as it is on the screen, which must not be covered there. Columns and rows count
// from its top left corner.
class HistoryPlot {
public:
    static constexpr int kLeft = 64;  // in the client area
    static constexpr int kTop = 8;

    explicit HistoryPlot(const RemoteWindow& history);

    int Columns() const { return m_columns; }
    // The row in which a value lies between two limits.
    int RowOf(double value, double lower, double upper) const;
    // The rows of a column that have exactly this colour.
    std::vector<int> Rows(int column, COLORREF colour) const;
    // The first and the last column of each run of columns without this colour.
    std::vector<std::pair<int, int>> GapsOf(COLORREF colour) const;

private:
    ScreenPicture m_client;
    int m_columns;
    int m_rows;
};

}  // namespace plotvane::test
