#include "app/DriveHistory.h"

namespace plotvane {

bool DriveHistory::IsDoubleClickOn(const CWnd& chart, POINT screen) {
    const CRect place = chart.GetWindowRect();
    if (!::PtInRect(&place, screen)) return false;
    // The system's widths and heights are those of the whole place around the first press.
    const DoubleClick::Limits limits{::GetDoubleClickTime(), ::GetSystemMetrics(SM_CXDOUBLECLK) / 2,
                                     ::GetSystemMetrics(SM_CYDOUBLECLK) / 2};
    return m_click.TakePress(::GetTickCount64(), screen.x, screen.y, limits);
}

}  // namespace plotvane
