// The main dialog's controls switch between two layouts.
#include "tests/windows/app/SlotControlsFixture.h"

namespace plotvane::test {
namespace {

using TenChannelLayoutTest = SlotControlsFixture;

std::set<int> Range(int first, int count) {
    std::set<int> ids;
    for (int id = first; id < first + count; ++id) ids.insert(id);
    return ids;
}

std::set<int> RowA() {
    std::set<int> ids;
    for (const int first : {IDC_VALUE_FIRST, IDC_SHOW_FIRST, IDC_SWATCH_FIRST})
        ids.merge(Range(first, kSlotColumns));
    return ids;
}

std::set<int> ObdRow() {
    std::set<int> ids;
    for (const int first : {IDC_CHANNEL_VALUE_FIRST, IDC_CHANNEL_SHOW_FIRST, IDC_CHANNEL_SWATCH_FIRST})
        ids.merge(Range(first, kChannelCount));
    return ids;
}

// The ten channels replace row A; everything else stays.
std::set<int> WithObdRowInPlaceOfRowA(std::set<int> ids) {
    for (const int id : RowA()) ids.erase(id);
    ids.merge(ObdRow());
    return ids;
}

TEST_F(TenChannelLayoutTest, TheTwelveSlotsAreShownAtFirst) {
    std::set<int> expected;
    for (const int first : {IDC_VALUE_FIRST, IDC_SHOW_FIRST, IDC_SWATCH_FIRST})
        expected.merge(Range(first, kSlotCount));
    for (const int id : {IDC_PAUSE, IDC_SCALE_NEXT, IDC_SCALE_PREVIOUS, IDC_SHIFT_DOWN, IDC_SHIFT_UP,
                         IDC_SCALE_MIN, IDC_SCALE_MAX, IDC_SHIFT_LABEL, IDC_VERTICAL_SCALE,
                         IDC_HORIZONTAL_SCALE, IDC_MAX_LABEL, IDC_MIN_LABEL})
        expected.insert(id);
    EXPECT_EQ(ShownControls(), expected);
}

TEST_F(TenChannelLayoutTest, TheTenChannelLayoutExchangesRowAForTheTenChannels) {
    const std::set<int> twelve = ShownControls();
    panel.ApplyLayout(true);
    EXPECT_EQ(ShownControls(), WithObdRowInPlaceOfRowA(twelve));
    panel.ApplyLayout(false);
    EXPECT_EQ(ShownControls(), twelve);
}

TEST_F(TenChannelLayoutTest, TheSwatchWindowsGoWithTheirRow) {
    for (const bool tenChannels : {false, true, false, true}) {
        panel.ApplyLayout(tenChannels);
        for (int slot = 0; slot < kSlotCount; ++slot)
            EXPECT_EQ(IsShown(IDC_SWATCH_WINDOW_FIRST + slot), !tenChannels || slot >= kSlotColumns) << slot;
        for (int channel = 0; channel < kChannelCount; ++channel)
            EXPECT_EQ(IsShown(IDC_CHANNEL_SWATCH_WINDOW_FIRST + channel), tenChannels) << channel;
    }
}

TEST_F(TenChannelLayoutTest, TheScaleBoxIsLockedInTheTenChannelLayout) {
    panel.ApplyLayout(true);
    EXPECT_FALSE(IsEnabled(IDC_SCALE_MIN));
    EXPECT_FALSE(IsEnabled(IDC_SCALE_MAX));
    panel.ApplyLayout(false);
    EXPECT_TRUE(IsEnabled(IDC_SCALE_MIN));
    EXPECT_TRUE(IsEnabled(IDC_SCALE_MAX));
}

TEST_F(TenChannelLayoutTest, FrameAndAirFuelButtonOfRowAGoWithIt) {
    const std::set<int> twelve = ShownControls();
    panel.ShowSelection(1, 0, 100);
    panel.ShowAirFuelButton(2, true);
    panel.ApplyLayout(true);
    EXPECT_EQ(ShownControls(), WithObdRowInPlaceOfRowA(twelve));
    panel.ApplyLayout(false);
    EXPECT_EQ(ShownControls(), twelve);
    EXPECT_EQ(WidthOfBox(2), 74);
}

TEST_F(TenChannelLayoutTest, FrameAndAirFuelButtonOfTheOtherRowsStay) {
    panel.ShowSelection(6, 0, 100);
    panel.ShowAirFuelButton(9, true);
    panel.ApplyLayout(true);
    EXPECT_EQ(ShownFrames(), std::vector<int>{6});
    EXPECT_TRUE(IsShown(1109));
    EXPECT_EQ(WidthOfBox(9), 43);
}

// The boxes of the first two channels lie on the speed buttons.
TEST_F(TenChannelLayoutTest, WhereTheReplaySpeedIsOfferedItMakesRoomForTheTenChannels) {
    for (const int id :
         {IDC_REPLAY_GROUP, IDC_REPLAY_FASTER, IDC_REPLAY_SLOWER, IDC_REPLAY_SPEED, IDC_ELAPSED})
        dialog.ShowDlgItem(id, true);
    const std::set<int> twelve = ShownControls();
    panel.ApplyLayout(true);
    std::set<int> ten = WithObdRowInPlaceOfRowA(twelve);
    for (const int id : {IDC_REPLAY_FASTER, IDC_REPLAY_SLOWER, IDC_REPLAY_SPEED}) ten.erase(id);
    EXPECT_EQ(ShownControls(), ten);
    panel.ApplyLayout(false);
    EXPECT_EQ(ShownControls(), twelve);
}

}  // namespace
}  // namespace plotvane::test
