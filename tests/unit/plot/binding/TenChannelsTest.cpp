#include "plot/binding/TenChannels.h"

#include "tests/support/PlotFixture.h"

namespace plotvane {
namespace {

using Range = test::FakeChart::Range;

class TenChannelsTest : public test::PlotFixture {
protected:
    // What the parser leaves after a record of the ten-channel form.
    void TickObd() {
        state.tenChannels = true;
        for (int slot = 0; slot < kSlotCount; ++slot) Empty(slot);
        channels.PrepareSlots();
        channels.UpdateChannels();
    }

    SlotSelection selection{sample, panel};
    TenChannels channels{sample, views, selection};
};

TEST_F(TenChannelsTest, TheFirstObdRecordExchangesTheLayout) {
    slots.channelValues = {12, 128};
    TickObd();
    EXPECT_TRUE(panel.tenChannels);
    for (int trace = 0; trace < 10; ++trace) EXPECT_EQ(chart.ranges[trace], (Range{-1, 256})) << trace;
    EXPECT_EQ(chart.ranges[10], (Range{0, 100}));
    EXPECT_EQ(panel.channelValues[0], "12");
    EXPECT_EQ(panel.channelValues[1], "128");
    EXPECT_EQ(panel.channelValues[9], "0");
    EXPECT_EQ(sample.values, (TraceValues{12, 128, 0, 0, 0, 0, 0, 0, 0, 0, -1, -1}));
    EXPECT_EQ(panel.channelSwatches[0], chart.GetTraceColor(0));
    for (int slot = 4; slot < kSlotCount; ++slot) EXPECT_EQ(panel.values[slot], "0 ") << slot;
}

TEST_F(TenChannelsTest, AnUntickedChannelRunsAtMinusOne) {
    slots.channelValues = {12, 128};
    TickObd();
    panel.channelsShown[1] = false;
    TickObd();
    EXPECT_EQ(sample.values[0], 12.0);
    EXPECT_EQ(sample.values[1], -1.0);
    EXPECT_EQ(panel.channelSwatches[1], test::FakePanel::kInactive);
    EXPECT_EQ(panel.channelValues[1], "128");
    EXPECT_EQ(panel.layouts, 1);
}

TEST_F(TenChannelsTest, EachTickHidesTheFirstFrameAndUnticksTheSlots) {
    TickObd();
    selection.SelectSlot(0, 0);
    panel.shown.fill(true);
    EXPECT_EQ(panel.frame, 0);
    TickObd();
    EXPECT_EQ(panel.frame, -1);
    EXPECT_EQ(panel.shown, (IndexedArray<bool, kSlotCount>{}));
}

TEST_F(TenChannelsTest, TheWayBackGivesTheFirstFourTracesTheLimitsOfTheLastRow) {
    TickObd();
    FillEngineGroup();
    for (int column = 0; column < kSlotColumns; ++column) {
        Fill(SlotOf(2, column), 9, column, 0.0, "");
        ranges.SetMin(9, column, -column);
        ranges.SetMax(9, column, 50 + column);
        ranges.SetMin(1, column, 7);
    }
    state.tenChannels = false;
    channels.PrepareSlots();
    EXPECT_FALSE(panel.tenChannels);
    EXPECT_EQ(chart.ranges[0], (Range{0, 50}));
    EXPECT_EQ(chart.ranges[1], (Range{-1, 51}));
    EXPECT_EQ(chart.ranges[3], (Range{-3, 53}));
    EXPECT_EQ(chart.ranges[4], (Range{-1, 256}));
    EXPECT_EQ(sample.values[0], 7.0);   // slot (0, 0)
    EXPECT_EQ(sample.values[9], -3.0);  // slot (2, 3), the last to write there
    EXPECT_EQ(sample.values[6], 0.0);   // (2, 0), after (1, 3)
    EXPECT_EQ(panel.selected, 0);
    EXPECT_TRUE(panel.shown[0]);
    EXPECT_FALSE(panel.shown[4]);
}

TEST_F(TenChannelsTest, TheWayBackSelectsTheFirstSlot) {
    TickObd();
    for (int slot = 0; slot < kSlotCount; ++slot) Fill(slot, 1, 0, 0.0, "");
    selection.SelectSlot(1, 1);
    state.tenChannels = false;
    channels.PrepareSlots();
    EXPECT_EQ(panel.selected, 0);
}

TEST_F(TenChannelsTest, NothingHappensWhileTheFormStays) {
    channels.PrepareSlots();
    EXPECT_EQ(panel.layouts, 0);
    EXPECT_EQ(chart.rangesSet, 0);
}

}  // namespace
}  // namespace plotvane
