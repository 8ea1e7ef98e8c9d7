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

int FrameOf(int slot) {
    constexpr int kFirstOfRow[] = {IDC_FRAME_ROW_A_FIRST, IDC_FRAME_ROW_B_FIRST, IDC_FRAME_ROW_C_FIRST};
    return kFirstOfRow[RowOf(slot)] + ColumnOf(slot);
}

int AirFuelIdOf(int slot) {
    return IDC_AIR_FUEL_FIRST + AirFuelButtonOf(slot);
}

}  // namespace

void SlotControls::SetUp() {
    TakeOverValueBoxes();
    m_swatches.Create(InactiveColour(), true);
    m_channelSwatches.Create(InactiveColour(), false);
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

void SlotControls::PlaceSwatches() {
    m_swatches.FollowPlaceholders();
    m_channelSwatches.FollowPlaceholders();
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
    m_swatches.SetColour(slot, colour);
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
        m_swatches.Redraw(slot);
        // For screen readers, Max and Min are named after the slot.
        for (const int id : {IDC_SCALE_MIN, IDC_SCALE_MAX})
            ::NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, m_dialog.GetDlgItem(id), OBJID_CLIENT, CHILDID_SELF);
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
    m_fuelButtons.FitToCover();
    m_swatches.SetColours(InactiveColour());
    m_channelSwatches.SetColours(InactiveColour());
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
        m_swatches.Show(slot, shown);
    }
}

void SlotControls::ShowChannelRow(bool shown) {
    for (int channel = 0; channel < kChannelCount; ++channel) {
        m_dialog.ShowDlgItem(IDC_CHANNEL_VALUE_FIRST + channel, shown);
        m_dialog.ShowDlgItem(IDC_CHANNEL_SHOW_FIRST + channel, shown);
        m_channelSwatches.Show(channel, shown);
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
    m_channelSwatches.SetColour(channel, colour);
}

Colour SlotControls::InactiveColour() const {
    return ::GetSysColor(COLOR_3DFACE);
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
