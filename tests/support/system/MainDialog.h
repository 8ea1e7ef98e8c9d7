#pragma once

#include <vector>

#include "tests/support/system/RemoteWindow.h"

namespace plotvane::test {

// The main dialog of a process, or of any process that has one if `processId` is 0. An empty window if there
// is none.
RemoteWindow FindMainDialog(DWORD processId = 0);

// The slots whose selection frame is shown. There should be one at most.
std::vector<int> ShownFrames(const RemoteWindow& main);

// The colour on the screen in the middle of a control.
COLORREF MiddleOf(const RemoteWindow& control);

// The chart as it is on the screen, in the coordinates of its client area.
class ChartOnScreen {
public:
    explicit ChartOnScreen(const RemoteWindow& main);

    int PlotRight() const { return m_width - 10; }
    // The row in which a value is drawn between two limits.
    int RowOf(double value, double lower, double upper) const;
    // The rows of column `x` that have exactly this colour.
    std::vector<int> Rows(int x, COLORREF colour) const;

private:
    RECT m_place;
    int m_width;
    int m_height;
};

}  // namespace plotvane::test
