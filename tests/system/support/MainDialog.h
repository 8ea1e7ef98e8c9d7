#pragma once

#include <vector>

#include "tests/system/support/RemoteWindow.h"

namespace plotvane::test {

// The program's main dialog: of this process, or of whichever process has one if `processId` is 0. An empty
// window while there is none.
RemoteWindow FindMainDialog(DWORD processId = 0);

// The slots whose selection frame is shown; never more than one, if all is well.
std::vector<int> ShownFrames(const RemoteWindow& main);

// The colour in the middle of a control, as it stands on the screen.
COLORREF MiddleOf(const RemoteWindow& control);

// The chart as it stands on the screen, in the co-ordinates of its inside.
class ChartOnScreen {
public:
    explicit ChartOnScreen(const RemoteWindow& main);

    int PlotRight() const { return m_width - 10; }
    // The row on which a value is drawn between two limits.
    int RowOf(double value, double lower, double upper) const;
    // The rows of column `x` that have exactly this colour.
    std::vector<int> Rows(int x, COLORREF colour) const;

private:
    RECT m_place;
    int m_width;
    int m_height;
};

}  // namespace plotvane::test
