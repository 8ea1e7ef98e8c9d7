#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <array>
#include <set>

#include "framework/Wnd.h"
#include "res/resource.h"

namespace plotvane::test {

// The main dialog's real template on the screen, without the program.
class MainDialogFixture : public testing::Test {
protected:
    MainDialogFixture() {
        const auto leaveAll = [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return FALSE; };
        dialog.Attach(::CreateDialogParamW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_MAIN), nullptr,
                                           leaveAll, 0));
        dialog.ShowWindow(SW_SHOWNA);
        dialog.UpdateWindow();
    }

    bool IsShown(int id) const { return ::IsWindowVisible(dialog.GetDlgItem(id)) != FALSE; }
    bool IsEnabled(int id) const { return ::IsWindowEnabled(dialog.GetDlgItem(id)) != FALSE; }

    // In client pixels of the dialog.
    CRect PlaceOf(int id) const {
        CRect place;
        ::GetWindowRect(dialog.GetDlgItem(id), &place);
        return dialog.ScreenToClient(place);
    }

    // A rectangle that can be compared: left, top, right, bottom.
    using Edges = std::array<LONG, 4>;
    static Edges EdgesOf(const CRect& rect) { return {rect.left, rect.top, rect.right, rect.bottom}; }
    Edges EdgesOf(int id) const { return EdgesOf(PlaceOf(id)); }

    // The controls of the template that are shown, by id; the chart's placeholder and the nameless ones are
    // left out.
    std::set<int> ShownControls() const {
        std::set<int> shown;
        for (int id = IDC_MOVED_FIRST; id <= IDC_MOVED_LAST; ++id) {
            if (IsShown(id)) shown.insert(id);
        }
        return shown;
    }

    // The colour in the middle of a child as the dialog shows it, with everything on top of it.
    COLORREF MiddleOf(int id) const {
        ::RedrawWindow(dialog.m_hWnd, nullptr, nullptr, RDW_ALLCHILDREN | RDW_UPDATENOW);
        const CRect place = PlaceOf(id);
        const HDC dc = ::GetDCEx(dialog.m_hWnd, nullptr, DCX_CACHE);
        const COLORREF colour =
            ::GetPixel(dc, (place.left + place.right) / 2, (place.top + place.bottom) / 2);
        ::ReleaseDC(dialog.m_hWnd, dc);
        return colour;
    }

    CWnd dialog;
};

}  // namespace plotvane::test
