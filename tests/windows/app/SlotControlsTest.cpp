#include "app/SlotControls.h"

#include <algorithm>
#include <vector>

#include "app/DialogLayout.h"
#include "plot/binding/AirFuelRule.h"
#include "tests/windows/app/SlotControlsFixture.h"
#include "tests/windows/framework/TestWnd.h"

namespace plotvane::test {
namespace {

constexpr Colour kTraceColour = 0x3070B0;

using SlotControlsTest = SlotControlsFixture;

// Swatches.

TEST_F(SlotControlsTest, SwatchesLieOverTheirPlaceholders) {
    ExpectSwatchesOverTheirPlaceholders();
}

TEST_F(SlotControlsTest, SwatchesFollowTheirPlaceholdersInBothLayouts) {
    MoveControlsDown(dialog, IDC_MOVED_FIRST, IDC_MOVED_LAST, 17);
    panel.PlaceSwatches();
    ExpectSwatchesOverTheirPlaceholders();
    panel.ApplyLayout(true);
    MoveControlsDown(dialog, IDC_MOVED_FIRST, IDC_MOVED_LAST, -5);
    panel.PlaceSwatches();
    ExpectSwatchesOverTheirPlaceholders();
}

TEST_F(SlotControlsTest, ASwatchWithoutATraceHasTheColourOfTheDialog) {
    EXPECT_EQ(panel.InactiveColour(), ::GetSysColor(COLOR_3DFACE));
    for (int slot = 0; slot < kSlotCount; ++slot)
        EXPECT_EQ(MiddleOf(IDC_SWATCH_WINDOW_FIRST + slot), ::GetSysColor(COLOR_3DFACE)) << slot;
}

TEST_F(SlotControlsTest, ASwatchTakesAColourAndLosesItAgain) {
    for (int slot = 0; slot < kSlotCount; ++slot) {
        panel.SetSwatch(slot, kTraceColour);
        EXPECT_EQ(MiddleOf(IDC_SWATCH_WINDOW_FIRST + slot), kTraceColour) << slot;
        panel.SetSwatch(slot, panel.InactiveColour());
        EXPECT_EQ(MiddleOf(IDC_SWATCH_WINDOW_FIRST + slot), ::GetSysColor(COLOR_3DFACE)) << slot;
    }
}

TEST_F(SlotControlsTest, ASwatchKeepsItsColourInItsFrame) {
    panel.SetSwatch(5, kTraceColour);
    panel.ShowSelection(5, 0, 100);
    EXPECT_EQ(MiddleOf(IDC_SWATCH_WINDOW_FIRST + 5), kTraceColour);
}

TEST_F(SlotControlsTest, AnObdSwatchTakesItsColourInTheTenChannelLayout) {
    panel.ApplyLayout(true);
    for (int channel = 0; channel < kChannelCount; ++channel) {
        EXPECT_EQ(MiddleOf(IDC_CHANNEL_SWATCH_WINDOW_FIRST + channel), ::GetSysColor(COLOR_3DFACE))
            << channel;
        panel.SetChannelSwatch(channel, kTraceColour);
        EXPECT_EQ(MiddleOf(IDC_CHANNEL_SWATCH_WINDOW_FIRST + channel), kTraceColour) << channel;
    }
}

TEST_F(SlotControlsTest, AnotherLayoutTakesTheColoursOfAllSwatches) {
    for (int slot = 0; slot < kSlotCount; ++slot) panel.SetSwatch(slot, kTraceColour);
    panel.ApplyLayout(true);
    for (int slot = kSlotColumns; slot < kSlotCount; ++slot)
        EXPECT_EQ(MiddleOf(IDC_SWATCH_WINDOW_FIRST + slot), ::GetSysColor(COLOR_3DFACE)) << slot;
    for (int channel = 0; channel < kChannelCount; ++channel) panel.SetChannelSwatch(channel, kTraceColour);
    panel.ApplyLayout(false);
    panel.ApplyLayout(true);
    for (int channel = 0; channel < kChannelCount; ++channel)
        EXPECT_EQ(MiddleOf(IDC_CHANNEL_SWATCH_WINDOW_FIRST + channel), ::GetSysColor(COLOR_3DFACE))
            << channel;
}

// Air/fuel switches.

TEST_F(SlotControlsTest, TheAirFuelButtonTakes31PixelsOfItsBoxAndGivesThemBack) {
    for (int slot = 0; slot < kSlotCount; ++slot) {
        const CRect before = PlaceOf(IDC_VALUE_FIRST + slot);
        ASSERT_EQ(before.Width(), 74) << slot;
        for (int round = 0; round < 2; ++round) {
            panel.ShowAirFuelButton(slot, false);  // where it is not shown, that changes nothing
            EXPECT_EQ(WidthOfBox(slot), 74) << slot;
            panel.ShowAirFuelButton(slot, true);
            EXPECT_EQ(WidthOfBox(slot), 43) << slot;
            panel.ShowAirFuelButton(slot, true);
            EXPECT_EQ(EdgesOf(IDC_VALUE_FIRST + slot),
                      (Edges{before.left, before.top, before.left + 43, before.bottom}))
                << slot;
            panel.ShowAirFuelButton(slot, false);
            EXPECT_EQ(EdgesOf(IDC_VALUE_FIRST + slot), EdgesOf(before)) << slot;
        }
    }
}

TEST_F(SlotControlsTest, EachSlotHasItsOwnAirFuelButton) {
    constexpr int kButtons[] = {1101, 1102, 1103, 1104, 1106, 1105, 1107, 1108, 1110, 1109, 1111, 1112};
    for (int slot = 0; slot < kSlotCount; ++slot) {
        panel.ShowAirFuelButton(slot, true);
        for (int id = IDC_AIR_FUEL_FIRST; id <= IDC_AIR_FUEL_LAST; ++id)
            EXPECT_EQ(IsShown(id), id == kButtons[slot]) << slot << ": " << id;
        EXPECT_FALSE(panel.IsAirFuelOn(slot));
        dialog.CheckDlgButton(kButtons[slot], true);
        EXPECT_TRUE(panel.IsAirFuelOn(slot));
        panel.ShowAirFuelButton(slot, false);
        EXPECT_FALSE(IsShown(kButtons[slot])) << slot;
        EXPECT_TRUE(panel.IsAirFuelOn(slot)) << "the switch keeps its position while it is hidden";
        dialog.CheckDlgButton(kButtons[slot], false);
    }
}

TEST_F(SlotControlsTest, TheAirFuelButtonStandsBetweenItsBoxAndTheSwatch) {
    for (int slot = 0; slot < kSlotCount; ++slot) {
        panel.ShowAirFuelButton(slot, true);
        const CRect box = PlaceOf(IDC_VALUE_FIRST + slot);
        const CRect button = PlaceOf(IDC_AIR_FUEL_FIRST + AirFuelButtonOf(slot));
        EXPECT_GE(button.left, box.right) << slot;
        EXPECT_LE(button.right, PlaceOf(IDC_SWATCH_FIRST + slot).left) << slot;
        EXPECT_EQ(button.top, box.top) << slot;
    }
}

// The selected slot.

TEST_F(SlotControlsTest, AtFirstNoFrameIsShown) {
    EXPECT_EQ(ShownFrames(), std::vector<int>{});
}

TEST_F(SlotControlsTest, OnlyTheFrameOfTheSelectedSlotIsShown) {
    for (const int slot : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 0, 7, 7}) {
        panel.ShowSelection(slot, 0, 100);
        EXPECT_EQ(ShownFrames(), std::vector<int>{slot});
    }
}

TEST_F(SlotControlsTest, TheFrameEnclosesTheControlsOfItsSlot) {
    constexpr int kFrames[] = {1092, 1093, 1094, 1095, 1088, 1089, 1090, 1091, 1084, 1085, 1086, 1087};
    for (int slot = 0; slot < kSlotCount; ++slot) {
        const CRect frame = PlaceOf(kFrames[slot]);
        for (const int id : {IDC_VALUE_FIRST + slot, IDC_SWATCH_FIRST + slot}) {
            const CRect control = PlaceOf(id);
            EXPECT_TRUE(frame.left < control.left && control.right < frame.right && frame.top < control.top &&
                        control.bottom < frame.bottom)
                << slot << ": " << id;
        }
    }
}

TEST_F(SlotControlsTest, HidingTheFrameOfOneSlotLeavesThatOfAnotherAlone) {
    panel.ShowSelection(3, 0, 100);
    panel.HideFrame(0);
    EXPECT_EQ(ShownFrames(), std::vector<int>{3});
    panel.HideFrame(3);
    EXPECT_EQ(ShownFrames(), std::vector<int>{});
    panel.ShowSelection(3, 0, 100);
    EXPECT_EQ(ShownFrames(), std::vector<int>{3});
}

TEST_F(SlotControlsTest, TheLimitsOfTheSelectedSlotStandInTheScaleBox) {
    panel.ShowSelection(2, -10, 120);
    EXPECT_EQ(dialog.GetDlgItemText(IDC_SCALE_MIN), "-10");
    EXPECT_EQ(dialog.GetDlgItemText(IDC_SCALE_MAX), "120");
    dialog.SetDlgItemText(IDC_SCALE_MAX, "7");
    panel.ShowSelection(2, -10, 120);
    EXPECT_EQ(dialog.GetDlgItemText(IDC_SCALE_MAX), "120");
}

// The right click.

TEST_F(SlotControlsTest, FindsTheSlotUnderAPoint) {
    for (int slot = 0; slot < kSlotCount; ++slot)
        EXPECT_EQ(panel.SlotAt(MiddleOnScreen(IDC_SWATCH_FIRST + slot)), slot);
    for (int channel = 0; channel < kChannelCount; ++channel)
        EXPECT_EQ(panel.ChannelAt(MiddleOnScreen(IDC_CHANNEL_SWATCH_FIRST + channel)), channel);
}

TEST_F(SlotControlsTest, ASwatchReachesFromItsFirstToItsLastPixel) {
    CRect place;
    ::GetWindowRect(dialog.GetDlgItem(IDC_SWATCH_FIRST + 6), &place);
    EXPECT_EQ(panel.SlotAt({place.left, place.top}), 6);
    EXPECT_EQ(panel.SlotAt({place.right - 1, place.bottom - 1}), 6);
    EXPECT_EQ(panel.SlotAt({place.left - 1, place.top}), -1);
    EXPECT_EQ(panel.SlotAt({place.left, place.top - 1}), -1);
    EXPECT_EQ(panel.SlotAt({place.right, place.top}), -1);
    EXPECT_EQ(panel.SlotAt({place.left, place.bottom}), -1);
}

TEST_F(SlotControlsTest, ThereIsNoSlotBesideTheSwatches) {
    EXPECT_EQ(panel.SlotAt({-1, -1}), -1);  // what the keyboard gives
    EXPECT_EQ(panel.ChannelAt({-1, -1}), -1);
    EXPECT_EQ(panel.SlotAt(MiddleOnScreen(IDC_VALUE_FIRST)), -1);
    EXPECT_EQ(panel.SlotAt(MiddleOnScreen(IDC_CHART_FRAME)), -1);
}

// Texts and check boxes.

TEST_F(SlotControlsTest, ValuesStandInTheirBoxes) {
    for (int slot = 0; slot < kSlotCount; ++slot)
        panel.ShowValue(slot, std::to_string(slot) +
                                  " \xB0"
                                  "C");
    for (int slot = 0; slot < kSlotCount; ++slot)
        EXPECT_EQ(dialog.GetDlgItemText(1031 + slot), std::to_string(slot) +
                                                          " \xB0"
                                                          "C");
    panel.ShowValue(4, "");
    EXPECT_EQ(dialog.GetDlgItemText(1035), "");
}

TEST_F(SlotControlsTest, ValuesAreDrawnTogether) {
    dialog.ShowWindow(SW_SHOWNA);
    DispatchAll();
    const HWND box = dialog.GetDlgItem(1031 + 5);
    const auto inked = [&] {
        const CClientDC dc(box);
        CRect client;
        ::GetClientRect(box, &client);
        int pixels = 0;
        for (int y = 0; y < client.Height(); ++y)
            for (int x = 0; x < client.Width(); ++x) pixels += ::GetPixel(dc, x, y) != ::GetPixel(dc, 0, 0);
        return pixels;
    };
    EXPECT_EQ(inked(), 0);
    for (int slot = 0; slot < kSlotCount; ++slot) panel.ShowValue(slot, "780 l/h");
    EXPECT_EQ(inked(), 0);
    panel.DrawValues();
    EXPECT_GT(inked(), 30);
}

TEST_F(SlotControlsTest, ObdValuesStandInTheirBoxes) {
    for (int channel = 0; channel < kChannelCount; ++channel)
        panel.ShowChannelValue(channel, std::to_string(channel * 25));
    for (int channel = 0; channel < kChannelCount; ++channel)
        EXPECT_EQ(dialog.GetDlgItemText(1043 + channel), std::to_string(channel * 25));
}

TEST_F(SlotControlsTest, ReadsAndSetsTheCheckBoxes) {
    for (int slot = 0; slot < kSlotCount; ++slot) {
        EXPECT_FALSE(panel.IsTraceShown(slot));
        panel.SetTraceShown(slot, true);
        EXPECT_TRUE(dialog.IsDlgButtonChecked(1056 + slot));
        dialog.CheckDlgButton(1056 + slot, false);
        EXPECT_FALSE(panel.IsTraceShown(slot));
    }
    for (int channel = 0; channel < kChannelCount; ++channel) {
        panel.SetChannelShown(channel, true);
        EXPECT_TRUE(dialog.IsDlgButtonChecked(1068 + channel));
        dialog.CheckDlgButton(1068 + channel, false);
        EXPECT_FALSE(panel.IsChannelShown(channel));
    }
}

TEST_F(SlotControlsTest, TheSpeedStandsBetweenItsButtonsFromTheStart) {
    EXPECT_EQ(dialog.GetDlgItemText(IDC_REPLAY_SPEED), "1x");
}

TEST_F(SlotControlsTest, PixelShiftAndElapsedTimeAreShown) {
    panel.ShowPixelShift(3);
    EXPECT_EQ(dialog.GetDlgItemText(1079), "PixelShift:3");
    panel.ShowElapsed("12.50");
    EXPECT_EQ(dialog.GetDlgItemText(1053), "12.50");
    EXPECT_EQ(dialog.GetDlgItemText(1078), "1x");
}

TEST_F(SlotControlsTest, BothFuelButtonsComeAndGo) {
    EXPECT_FALSE(IsShown(1099));
    EXPECT_FALSE(IsShown(1100));
    panel.ShowFuelButtons(true);
    EXPECT_TRUE(IsShown(1099));
    EXPECT_TRUE(IsShown(1100));
    panel.ShowFuelButtons(false);
    EXPECT_FALSE(IsShown(1099));
    EXPECT_FALSE(IsShown(1100));
}

// The two buttons below the chart that other controls may cover.
class FuelButtonsTest : public SlotControlsFixture {
protected:
    FuelButtonsTest() {
        ::SetWindowPos(dialog.m_hWnd, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    }

    void ShowReplayControls() {
        for (const int id :
             {IDC_REPLAY_GROUP, IDC_REPLAY_FASTER, IDC_REPLAY_SLOWER, IDC_REPLAY_SPEED, IDC_ELAPSED})
            dialog.ShowDlgItem(id, true);
    }

    // The control that a click at that point of the dialog would reach.
    int Clicked(POINT point) const {
        ::ClientToScreen(dialog.m_hWnd, &point);
        return ::GetDlgCtrlID(::WindowFromPoint(point));
    }

    // A click on a pixel of the button reaches the button exactly if none of those controls covers the pixel.
    void ExpectAllButWhatLiesOnIt(int button, const std::vector<int>& covers) const {
        const CRect place = PlaceOf(button);
        for (LONG y = place.top; y < place.bottom; ++y) {
            for (LONG x = place.left; x < place.right; ++x) {
                const bool isCovered = std::any_of(covers.begin(), covers.end(), [&](int cover) {
                    return PlaceOf(cover).Contains({x, y});
                });
                ASSERT_EQ(Clicked({x, y}) == button, !isCovered) << button << " at " << x << "," << y;
            }
        }
    }

    const std::vector<int> replay = {IDC_REPLAY_FASTER, IDC_REPLAY_SLOWER, IDC_REPLAY_SPEED, IDC_ELAPSED};
};

TEST_F(FuelButtonsTest, InAReplayLoseWhatTheControlsOfItsSpeedCoverAndNoMore) {
    ShowReplayControls();
    panel.ShowFuelButtons(true);
    for (const int id : {IDC_MILEAGE, IDC_CONSUMPTION}) {
        ExpectAllButWhatLiesOnIt(id, replay);
        EXPECT_NE(dialog.SendDlgItemMessage(id, BM_GETIMAGE, IMAGE_ICON), 0)
            << id << " would show cut letters";
        EXPECT_TRUE(::GetWindowLongPtrW(dialog.GetDlgItem(id), GWL_STYLE) & BS_ICON) << id;
    }
    EXPECT_EQ(dialog.GetDlgItemText(IDC_MILEAGE), "Mileage");
    EXPECT_EQ(dialog.GetDlgItemText(IDC_CONSUMPTION), "Consumption");
}

TEST_F(FuelButtonsTest, LeaveTheControlsOfTheSpeedAsTheyAre) {
    ShowReplayControls();
    std::vector<Edges> before;
    for (const int id : replay) before.push_back(EdgesOf(id));
    panel.ShowFuelButtons(true);
    for (std::size_t i = 0; i < replay.size(); ++i) {
        EXPECT_EQ(EdgesOf(replay[i]), before[i]) << replay[i];
        const CRect place = PlaceOf(replay[i]);
        if (replay[i] == IDC_REPLAY_SPEED) continue;  // a text is not clicked
        EXPECT_EQ(Clicked({(place.left + place.right) / 2, (place.top + place.bottom) / 2}), replay[i]);
    }
}

TEST_F(FuelButtonsTest, BelowTenChannelsLoseWhatTheseCoverAndGetItBack) {
    panel.ShowFuelButtons(true);
    panel.ApplyLayout(true);
    ExpectAllButWhatLiesOnIt(
        IDC_MILEAGE, {IDC_CHANNEL_VALUE_FIRST, IDC_CHANNEL_VALUE_FIRST + 1, IDC_CHANNEL_SWATCH_FIRST,
                      IDC_CHANNEL_SWATCH_FIRST + 1, IDC_CHANNEL_SHOW_FIRST, IDC_CHANNEL_SHOW_FIRST + 1});
    panel.ApplyLayout(false);
    ExpectAllButWhatLiesOnIt(IDC_MILEAGE, {});
    EXPECT_FALSE(::GetWindowLongPtrW(dialog.GetDlgItem(IDC_MILEAGE), GWL_STYLE) & BS_ICON)
        << "the text is shown again";
}

TEST_F(FuelButtonsTest, WithoutAReplayAreWhole) {
    panel.ShowFuelButtons(true);
    for (const int id : {IDC_MILEAGE, IDC_CONSUMPTION}) {
        RECT shown{};
        EXPECT_EQ(::GetWindowRgnBox(dialog.GetDlgItem(id), &shown), ERROR) << id;
        EXPECT_EQ(dialog.SendDlgItemMessage(id, BM_GETIMAGE, IMAGE_ICON), 0) << id;
    }
}

TEST_F(SlotControlsTest, AMarkShowsWhichCheckBoxHasTheFocus) {
    EXPECT_FALSE(IsShown(IDC_SHOW_FOCUS));
    for (int slot = 0; slot < kSlotCount; ++slot) {
        panel.ShowFocus(IDC_SHOW_FIRST + slot);
        EXPECT_TRUE(IsShown(IDC_SHOW_FOCUS));
        const CRect box = PlaceOf(IDC_SHOW_FIRST + slot);
        const CRect swatch = PlaceOf(IDC_SWATCH_FIRST + slot);
        const Edges around = {std::min(box.left, swatch.left) - 1, swatch.top - 1,
                              std::max(box.right, swatch.right) + 1, box.bottom + 1};
        EXPECT_EQ(EdgesOf(IDC_SHOW_FOCUS), around) << slot;
    }
    panel.ShowFocus(0);
    EXPECT_FALSE(IsShown(IDC_SHOW_FOCUS));
}

TEST_F(SlotControlsTest, TheMarkOfTheFocusGoesWithItsCheckBox) {
    panel.ShowFocus(IDC_SHOW_FIRST);
    const CRect before = PlaceOf(IDC_SHOW_FOCUS);
    for (const int id : {IDC_SHOW_FIRST, IDC_SWATCH_FIRST}) {
        const CRect place = PlaceOf(id);
        ::SetWindowPos(dialog.GetDlgItem(id), nullptr, place.left, place.top + 40, 0, 0,
                       SWP_NOSIZE | SWP_NOZORDER);
    }
    panel.PlaceSwatches();
    EXPECT_EQ(PlaceOf(IDC_SHOW_FOCUS).top, before.top + 40);

    panel.ApplyLayout(true);
    EXPECT_FALSE(IsShown(IDC_SHOW_FOCUS));
    panel.ApplyLayout(false);
    EXPECT_TRUE(IsShown(IDC_SHOW_FOCUS));
}

}  // namespace
}  // namespace plotvane::test
