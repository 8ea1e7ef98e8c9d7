#include "app/SlotControls.h"

#include <algorithm>
#include <optional>

#include "app/DialogLayout.h"
#include "base/Numbers.h"
#include "plot/binding/AirFuelRule.h"
#include "res/resource.h"

namespace plotvane {
namespace {

// Pixels at 96 dpi, as the value boxes of the template are 74 wide.
constexpr int kWideBox = 70;
constexpr int kAirFuelWidth = 31;
constexpr int kFuelImageSize = 12;

int FrameOf(int slot) {
    constexpr int kFirstOfRow[] = {IDC_FRAME_ROW_A_FIRST, IDC_FRAME_ROW_B_FIRST, IDC_FRAME_ROW_C_FIRST};
    return kFirstOfRow[RowOf(slot)] + ColumnOf(slot);
}

int AirFuelIdOf(int slot) {
    return IDC_AIR_FUEL_FIRST + AirFuelButtonOf(slot);
}

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

void SetColour(CColorBox& box, Colour colour) {
    if (box.GetFillColor() == colour) return;
    box.SetFillColor(colour);
    box.SetFrameColor(colour);
}

}  // namespace

void SlotControls::SetUp() {
    TakeOverValueBoxes();
    for (int slot = 0; slot < kSlotCount; ++slot) {
        CreateSwatch(m_swatches[slot], IDC_SWATCH_FIRST + slot,
                     IDC_SWATCH_WINDOW_FIRST + static_cast<UINT>(slot), true);
    }
    for (int channel = 0; channel < kChannelCount; ++channel) {
        CreateSwatch(m_channelSwatches[channel], IDC_CHANNEL_SWATCH_FIRST + channel,
                     IDC_CHANNEL_SWATCH_WINDOW_FIRST + static_cast<UINT>(channel), false);
    }
}

void SlotControls::TakeOverValueBoxes() {
    for (int slot = 0; slot < kSlotCount; ++slot) {
        const int id = IDC_VALUE_FIRST + slot;
        m_dialog.SendDlgItemMessage(id, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, 0);
        m_values[slot].TakeOver(m_dialog.GetDlgItem(id));
    }
    for (int channel = 0; channel < kChannelCount; ++channel) {
        m_channelValues[channel].TakeOver(m_dialog.GetDlgItem(IDC_CHANNEL_VALUE_FIRST + channel));
    }
    m_elapsed.TakeOver(m_dialog.GetDlgItem(IDC_ELAPSED));
}

// On top of its placeholder, which would otherwise paint over it.
void SlotControls::CreateSwatch(CColorBox& box, int placeholder, UINT id, bool shown) {
    SetColour(box, InactiveColour());
    box.Create(WS_CHILD | WS_CLIPSIBLINGS | (shown ? WS_VISIBLE : 0), PlaceOfControl(m_dialog, placeholder),
               m_dialog.m_hWnd, id);
    ::SetWindowPos(box.m_hWnd, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_NOREDRAW);
}

void SlotControls::Place(CColorBox& box, int placeholder) {
    const CRect place = PlaceOfControl(m_dialog, placeholder);
    ::SetWindowPos(box.m_hWnd, nullptr, place.left, place.top, place.Width(), place.Height(),
                   SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW);
}

void SlotControls::PlaceSwatches() {
    for (int slot = 0; slot < kSlotCount; ++slot) Place(m_swatches[slot], IDC_SWATCH_FIRST + slot);
    for (int channel = 0; channel < kChannelCount; ++channel) {
        Place(m_channelSwatches[channel], IDC_CHANNEL_SWATCH_FIRST + channel);
    }
    ShowFocus(m_focused);
}

// Around the check box and the swatch above it. A check box that a layout has hidden may still have the
// focus.
void SlotControls::ShowFocus(int checkBox) {
    m_focused = checkBox;
    if (!::IsWindowVisible(m_dialog.GetDlgItem(checkBox))) return m_dialog.ShowDlgItem(IDC_SHOW_FOCUS, false);
    CRect box;
    CRect swatch;
    ::GetWindowRect(m_dialog.GetDlgItem(checkBox), &box);
    ::GetWindowRect(m_dialog.GetDlgItem(IDC_SWATCH_FIRST + checkBox - IDC_SHOW_FIRST), &swatch);
    CRect mark;
    ::UnionRect(&mark, &box, &swatch);
    ::InflateRect(&mark, 1, 1);
    mark = m_dialog.ScreenToClient(mark);
    ::SetWindowPos(m_dialog.GetDlgItem(IDC_SHOW_FOCUS), nullptr, mark.left, mark.top, mark.Width(),
                   mark.Height(), SWP_NOZORDER | SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

int SlotControls::SlotAt(POINT screen) const {
    return HitAmong(screen, IDC_SWATCH_FIRST, kSlotCount);
}

int SlotControls::ChannelAt(POINT screen) const {
    return HitAmong(screen, IDC_CHANNEL_SWATCH_FIRST, kChannelCount);
}

int SlotControls::HitAmong(POINT screen, int firstPlaceholder, int count) const {
    for (int i = 0; i < count; ++i) {
        CRect place;
        ::GetWindowRect(m_dialog.GetDlgItem(firstPlaceholder + i), &place);
        if (place.Contains(screen)) return i;
    }
    return -1;
}

void SlotControls::ShowValue(int slot, std::string_view text) {
    m_values[slot].Take(text);
}

void SlotControls::DrawValues() {
    std::optional<CDialogDC> dialog;
    const auto draw = [&](CValueBox& box) {
        if (!box.HasToDraw()) return;
        if (!dialog) dialog.emplace(m_dialog.m_hWnd);
        box.DrawOnParent(*dialog);
    };
    std::ranges::for_each(m_values, draw);
    std::ranges::for_each(m_channelValues, draw);
}

bool SlotControls::IsTraceShown(int slot) const {
    return m_dialog.IsDlgButtonChecked(IDC_SHOW_FIRST + slot);
}

void SlotControls::SetTraceShown(int slot, bool shown) {
    SetChecked(IDC_SHOW_FIRST + slot, shown);
}

void SlotControls::SetSwatch(int slot, Colour colour) {
    SetColour(m_swatches[slot], colour);
}

void SlotControls::ShowAirFuelButton(int slot, bool shown) {
    const HWND box = m_dialog.GetDlgItem(IDC_VALUE_FIRST + slot);
    CRect place;
    ::GetWindowRect(box, &place);
    place = m_dialog.ScreenToClient(place);
    if (shown && place.Width() > kWideBox) {
        ::MoveWindow(box, place.left, place.top, place.Width() - kAirFuelWidth, place.Height(), TRUE);
    } else if (!shown && place.Width() < kWideBox) {
        ::MoveWindow(box, place.left, place.top, place.Width() + kAirFuelWidth, place.Height(), TRUE);
    }
    if (m_airFuelShown[slot] == shown) return;
    m_airFuelShown[slot] = shown;
    m_dialog.ShowDlgItem(AirFuelIdOf(slot), shown);
}

bool SlotControls::IsAirFuelOn(int slot) const {
    return m_dialog.IsDlgButtonChecked(AirFuelIdOf(slot));
}

void SlotControls::ShowSelection(int slot, int minimum, int maximum) {
    if (m_frame != slot) {
        if (m_frame != kNoFrame) m_dialog.ShowDlgItem(FrameOf(m_frame), false);
        m_frame = slot;
        m_dialog.ShowDlgItem(FrameOf(slot), true);
        // The frame paints over the controls inside it, so they are painted again.
        for (const int id : {IDC_VALUE_FIRST + slot, IDC_SHOW_FIRST + slot, IDC_SWATCH_FIRST + slot,
                             AirFuelIdOf(slot), IDC_SHOW_FOCUS}) {
            ::InvalidateRect(m_dialog.GetDlgItem(id), nullptr, TRUE);
        }
        m_swatches[slot].Invalidate();
    }
    ShowLimit(IDC_SCALE_MIN, minimum);
    ShowLimit(IDC_SCALE_MAX, maximum);
}

void SlotControls::HideFrame(int slot) {
    if (m_frame != slot) return;
    m_dialog.ShowDlgItem(FrameOf(slot), false);
    m_frame = kNoFrame;
}

// The user types into these edits, so only the edits themselves know what they show.
void SlotControls::ShowLimit(int id, int limit) {
    std::string text;
    AppendDecimal(text, limit);
    if (m_dialog.GetDlgItemText(id) != text) m_dialog.SetDlgItemText(id, text);
}

void SlotControls::ApplyLayout(bool tenChannels) {
    ShowRowA(!tenChannels);
    ShowChannelRow(tenChannels);
    MakeRoomForChannelRow(tenChannels);
    m_dialog.EnableDlgItem(IDC_SCALE_MIN, !tenChannels);
    m_dialog.EnableDlgItem(IDC_SCALE_MAX, !tenChannels);
    PlaceSwatches();
    if (m_fuelButtonsShown) FitFuelButtons();
    for (CColorBox& box : m_swatches) SetColour(box, InactiveColour());
    for (CColorBox& box : m_channelSwatches) SetColour(box, InactiveColour());
    // The group boxes are transparent: erasing the dialog below them wipes them out.
    ::RedrawWindow(m_dialog.m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void SlotControls::ShowRowA(bool shown) {
    for (int slot = 0; slot < kSlotColumns; ++slot) {
        if (!shown) {
            HideFrame(slot);
            ShowAirFuelButton(slot, false);
        }
        m_dialog.ShowDlgItem(IDC_VALUE_FIRST + slot, shown);
        m_dialog.ShowDlgItem(IDC_SHOW_FIRST + slot, shown);
        m_dialog.ShowDlgItem(IDC_SWATCH_FIRST + slot, shown);
        m_swatches[slot].ShowWindow(shown ? SW_SHOWNA : SW_HIDE);
    }
}

void SlotControls::ShowChannelRow(bool shown) {
    for (int channel = 0; channel < kChannelCount; ++channel) {
        m_dialog.ShowDlgItem(IDC_CHANNEL_VALUE_FIRST + channel, shown);
        m_dialog.ShowDlgItem(IDC_CHANNEL_SHOW_FIRST + channel, shown);
        m_dialog.ShowDlgItem(IDC_CHANNEL_SWATCH_FIRST + channel, shown);
        m_channelSwatches[channel].ShowWindow(shown ? SW_SHOWNA : SW_HIDE);
    }
}

// The boxes of the first two channels lie on the controls of the replay speed.
void SlotControls::MakeRoomForChannelRow(bool made) {
    if (made) m_replaySpeedHidden = ::IsWindowVisible(m_dialog.GetDlgItem(IDC_REPLAY_SPEED)) != FALSE;
    if (!m_replaySpeedHidden) return;
    for (const int id : {IDC_REPLAY_SLOWER, IDC_REPLAY_SPEED, IDC_REPLAY_FASTER})
        m_dialog.ShowDlgItem(id, !made);
}

bool SlotControls::OffersReplaySpeed() const {
    return m_replaySpeedHidden || ::IsWindowVisible(m_dialog.GetDlgItem(IDC_REPLAY_SPEED)) != FALSE;
}

void SlotControls::ShowChannelValue(int channel, std::string_view text) {
    m_channelValues[channel].Take(text);
}

bool SlotControls::IsChannelShown(int channel) const {
    return m_dialog.IsDlgButtonChecked(IDC_CHANNEL_SHOW_FIRST + channel);
}

void SlotControls::SetChannelShown(int channel, bool shown) {
    SetChecked(IDC_CHANNEL_SHOW_FIRST + channel, shown);
}

void SlotControls::SetChannelSwatch(int channel, Colour colour) {
    SetColour(m_channelSwatches[channel], colour);
}

Colour SlotControls::InactiveColour() const {
    return ::GetSysColor(COLOR_3DFACE);
}

void SlotControls::ShowFuelButtons(bool shown) {
    if (shown == m_fuelButtonsShown) return;
    m_fuelButtonsShown = shown;
    if (shown) FitFuelButtons();
    m_dialog.ShowDlgItem(IDC_MILEAGE, shown);
    m_dialog.ShowDlgItem(IDC_CONSUMPTION, shown);
}

void SlotControls::FitFuelButtons() {
    for (const int id : {IDC_MILEAGE, IDC_CONSUMPTION}) FitFuelButton(id);
}

// In a replay the controls of its speed cover the fuel buttons in part; in the ten-channel layout the
// channels' boxes do. The uncovered part of a button is shown and can be clicked. It has a picture at its
// right end in place of its text, because the text would be cut through.
void SlotControls::FitFuelButton(int id) {
    const HWND button = m_dialog.GetDlgItem(id);
    const HRGN uncovered = UncoveredPart(button);
    const LONG_PTR text = ::GetWindowLongPtrW(button, GWL_STYLE) & ~LONG_PTR{BS_ICON | BS_RIGHT};
    ::SetWindowLongPtrW(button, GWL_STYLE, uncovered ? text | BS_ICON | BS_RIGHT : text);
    if (uncovered && !m_dialog.SendDlgItemMessage(id, BM_GETIMAGE, IMAGE_ICON)) {
        if (!m_fuelImage) m_fuelImage = LoadIconOf(IDI_FUEL, kFuelImageSize, kFuelImageSize);
        m_dialog.SendDlgItemMessage(id, BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(m_fuelImage.Get()));
    }
    ::SetWindowRgn(button, uncovered, TRUE);  // the window owns the region from now on
}

void SlotControls::ShowPixelShift(int pixels) {
    std::string text = m_pixelShiftText;
    AppendDecimal(text, pixels);
    m_dialog.SetDlgItemText(IDC_SHIFT_LABEL, text);
}

void SlotControls::ShowElapsed(std::string_view text) {
    m_elapsed.Show(text);
}

void SlotControls::SetChecked(int id, bool checked) {
    if (m_dialog.IsDlgButtonChecked(id) != checked) m_dialog.CheckDlgButton(id, checked);
}

}  // namespace plotvane
