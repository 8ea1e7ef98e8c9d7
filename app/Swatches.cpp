#include "app/Swatches.h"

#include "app/DialogLayout.h"

namespace plotvane {

// On top of its placeholder, which would otherwise paint over it.
void Swatches::Create(Colour colour, bool shown) {
    const DWORD style = WS_CHILD | WS_CLIPSIBLINGS | (shown ? WS_VISIBLE : 0);
    for (int swatch = 0; swatch < Count(); ++swatch) {
        SetColour(swatch, colour);
        Box(swatch).Create(style, PlaceOfControl(m_dialog, m_firstPlaceholder + swatch), m_dialog.m_hWnd,
                           static_cast<UINT>(m_firstWindow + swatch));
        ::SetWindowPos(Box(swatch).m_hWnd, HWND_TOP, 0, 0, 0, 0,
                       SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_NOREDRAW);
    }
}

void Swatches::FollowPlaceholders() {
    for (int swatch = 0; swatch < Count(); ++swatch) {
        const CRect place = PlaceOfControl(m_dialog, m_firstPlaceholder + swatch);
        ::SetWindowPos(Box(swatch).m_hWnd, nullptr, place.left, place.top, place.Width(), place.Height(),
                       SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW);
    }
}

int Swatches::At(POINT screen) const {
    for (int swatch = 0; swatch < Count(); ++swatch) {
        CRect place;
        ::GetWindowRect(m_dialog.GetDlgItem(m_firstPlaceholder + swatch), &place);
        if (place.Contains(screen)) return swatch;
    }
    return -1;
}

void Swatches::Show(int swatch, bool shown) {
    m_dialog.ShowDlgItem(m_firstPlaceholder + swatch, shown);
    Box(swatch).ShowWindow(shown ? SW_SHOWNA : SW_HIDE);
}

void Swatches::SetColour(int swatch, Colour colour) {
    CColorBox& box = Box(swatch);
    if (box.GetFillColor() == colour) return;
    box.SetFillColor(colour);
    box.SetFrameColor(colour);
}

void Swatches::SetColours(Colour colour) {
    for (int swatch = 0; swatch < Count(); ++swatch) SetColour(swatch, colour);
}

}  // namespace plotvane
