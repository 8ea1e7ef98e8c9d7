#include "app/ChartReadOut.h"

namespace plotvane {
namespace {

constexpr UINT kRestMs = 500;     // before the tip comes
constexpr UINT kRefreshMs = 100;  // while the traces go by under the pointer

bool IsButtonDown() {
    for (const int button : {VK_LBUTTON, VK_RBUTTON, VK_MBUTTON}) {
        if (::GetAsyncKeyState(button) < 0) return true;
    }
    return false;
}

}  // namespace

// Windows also reports a pointer that has not moved, for example when the window below it changes.
void ChartReadOut::TakeMouse(HWND window, UINT message) {
    if (window != m_chart.m_hWnd) return;
    POINT pointer{};
    ::GetCursorPos(&pointer);
    const bool hasMoved = pointer.x != m_pointer.x || pointer.y != m_pointer.y;
    if (message == WM_MOUSEMOVE && !hasMoved) return;
    m_pointer = pointer;
    m_tip.Hide();
    m_dialog.SetTimer(kTimer, kRestMs);
}

void ChartReadOut::OnTimer() {
    POINT pointer{};
    ::GetCursorPos(&pointer);
    const bool isOverChart = ::WindowFromPoint(pointer) == m_chart.m_hWnd;
    if (!isOverChart || !::IsWindowEnabled(m_dialog.m_hWnd)) {
        // When it comes back, even to the same place, it has to rest there again.
        m_pointer = {-1, -1};
        return m_tip.Hide();
    }
    m_dialog.SetTimer(kTimer, kRefreshMs);
    const auto sample = IsButtonDown() ? std::nullopt : SampleAt(pointer);
    if (!sample) return m_tip.Hide();
    m_tip.Show(m_dialog.m_hWnd, pointer, ReadOutOf(m_recording, *sample), LookOf(m_prefs));
}

std::optional<std::int64_t> ChartReadOut::SampleAt(POINT screen) const {
    ::ScreenToClient(m_chart.m_hWnd, &screen);
    const PixelRect& plot = m_chart.Geometry().Plot();
    if (screen.x < plot.left || screen.y < plot.top || screen.y > plot.bottom) return std::nullopt;
    const auto sample = m_columns.SampleAt(plot.right - 1 - static_cast<int>(screen.x));
    // The oldest ones go when the recording is full.
    return sample && *sample >= m_recording.Begin() ? sample : std::nullopt;
}

}  // namespace plotvane
