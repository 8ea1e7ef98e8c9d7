#include "app/FuelButtons.h"

#include "res/resource.h"

namespace plotvane {
namespace {

constexpr int kImageSize = 12;  // pixels

// The part of a control that no other control covers, in the control's own pixels; null if no control covers
// any of it. Frames do not count as cover. The caller frees the region.
HRGN UncoveredPart(HWND control) {
    CRect place;
    ::GetWindowRect(control, &place);
    HRGN part = nullptr;
    for (HWND above = ::GetWindow(control, GW_HWNDPREV); above; above = ::GetWindow(above, GW_HWNDPREV)) {
        const bool isFrame = ::GetWindowLongPtrW(above, GWL_EXSTYLE) & WS_EX_TRANSPARENT;
        CRect cover;
        ::GetWindowRect(above, &cover);
        if (isFrame || !::IsWindowVisible(above) || !::IntersectRect(&cover, &cover, &place)) continue;
        ::OffsetRect(&cover, -place.left, -place.top);
        const CRgn covered{::CreateRectRgnIndirect(&cover)};
        if (!part) part = ::CreateRectRgn(0, 0, place.Width(), place.Height());
        ::CombineRgn(part, part, covered.Get(), RGN_DIFF);
    }
    return part;
}

}  // namespace

void FuelButtons::Show(bool shown) {
    if (shown == m_shown) return;
    m_shown = shown;
    FitToCover();
    m_dialog.ShowDlgItem(IDC_MILEAGE, shown);
    m_dialog.ShowDlgItem(IDC_CONSUMPTION, shown);
}

void FuelButtons::FitToCover() {
    if (!m_shown) return;
    for (const int id : {IDC_MILEAGE, IDC_CONSUMPTION}) Fit(id);
}

// In a replay the controls of its speed cover the buttons in part; in the ten-channel layout the channels'
// boxes do. The uncovered part of a button is shown and can be clicked. It has a picture at its right end in
// place of its text, because the text would be cut through.
void FuelButtons::Fit(int id) {
    const HWND button = m_dialog.GetDlgItem(id);
    const HRGN uncovered = UncoveredPart(button);
    const LONG_PTR text = ::GetWindowLongPtrW(button, GWL_STYLE) & ~LONG_PTR{BS_ICON | BS_RIGHT};
    ::SetWindowLongPtrW(button, GWL_STYLE, uncovered ? text | BS_ICON | BS_RIGHT : text);
    if (uncovered && !m_dialog.SendDlgItemMessage(id, BM_GETIMAGE, IMAGE_ICON)) {
        if (!m_image) m_image = LoadIconOf(IDI_FUEL, kImageSize, kImageSize);
        m_dialog.SendDlgItemMessage(id, BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(m_image.Get()));
    }
    ::SetWindowRgn(button, uncovered, TRUE);  // the window owns the region from now on
}

}  // namespace plotvane
