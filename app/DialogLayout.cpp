#include "app/DialogLayout.h"

#include <algorithm>

namespace plotvane {

CRect PlaceOfControl(const CWnd& dialog, int id) {
    CRect place;
    ::GetWindowRect(dialog.GetDlgItem(id), &place);
    return dialog.ScreenToClient(place);
}

void MoveControlsDown(CWnd& dialog, int firstId, int lastId, int pixels) {
    if (pixels == 0) return;
    const CRect origin = dialog.ScreenToClient(CRect());  // once, not for each of a hundred controls
    HDWP moves = ::BeginDeferWindowPos(lastId - firstId + 1);
    for (int id = firstId; id <= lastId && moves; ++id) {
        CRect place;
        const HWND control = dialog.GetDlgItem(id);
        if (!control || !::GetWindowRect(control, &place)) continue;
        moves = ::DeferWindowPos(moves, control, nullptr, place.left + origin.left,
                                 place.top + origin.top + pixels, 0, 0,
                                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW);
    }
    if (moves) ::EndDeferWindowPos(moves);
}

void GrowControl(CWnd& dialog, int id, int width, int height) {
    const CRect place = PlaceOfControl(dialog, id);
    ::SetWindowPos(dialog.GetDlgItem(id), nullptr, 0, 0, place.Width() + width, place.Height() + height,
                   SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW);
}

// The size comes from a file. Nobody could use a window that is larger than the screen.
void ResizeOnTop(CWnd& dialog, int width, int height) {
    const int widest = ::GetSystemMetrics(SM_CXVIRTUALSCREEN);
    const int highest = std::max(::GetSystemMetrics(SM_CYVIRTUALSCREEN), kLeastHeight);
    ::SetWindowPos(dialog.m_hWnd, HWND_TOP, 0, 0, std::clamp(width, 0, widest),
                   std::clamp(height, kLeastHeight, highest), SWP_NOMOVE);
}

}  // namespace plotvane
