#include "tests/support/system/MainDialog.h"

#include "res/resource.h"

namespace plotvane::test {

RemoteWindow FindMainDialog(DWORD processId) {
    for (const RemoteWindow& window : WindowsOf(processId)) {
        if (window.Control(IDC_CHART_FRAME).Exists()) return window;
    }
    return {};
}

std::vector<int> ShownFrames(const RemoteWindow& main) {
    constexpr int kFirstFrames[] = {IDC_FRAME_ROW_A_FIRST, IDC_FRAME_ROW_B_FIRST, IDC_FRAME_ROW_C_FIRST};
    std::vector<int> shown;
    for (int slot = 0; slot < 12; ++slot) {
        if (main.IsShown(kFirstFrames[slot / 4] + slot % 4)) shown.push_back(slot);
    }
    return shown;
}

COLORREF MiddleOf(const RemoteWindow& control) {
    const RECT place = control.ScreenRect();
    const LONG x = (place.left + place.right) / 2;
    const LONG y = (place.top + place.bottom) / 2;
    return PictureOf({x, y, x + 1, y + 1}).At(0, 0);
}

ChartOnScreen::ChartOnScreen(const RemoteWindow& main)
    : m_place(main.Control(IDC_CHART).ClientScreenRect()),
      m_width(m_place.right - m_place.left),
      m_height(m_place.bottom - m_place.top) {}

int ChartOnScreen::RowOf(double value, double lower, double upper) const {
    const int bottom = m_height - 10;
    const int plotHeight = bottom - 10;
    const double factor = plotHeight / (upper - lower);
    return bottom - static_cast<int>((value - lower) * factor);
}

std::vector<int> ChartOnScreen::Rows(int x, COLORREF colour) const {
    const LONG left = m_place.left + x;
    const ScreenPicture column = PictureOf({left, m_place.top, left + 1, m_place.bottom});
    std::vector<int> rows;
    for (int y = 0; y < column.height; ++y) {
        if (column.At(0, y) == colour) rows.push_back(y);
    }
    return rows;
}

}  // namespace plotvane::test
