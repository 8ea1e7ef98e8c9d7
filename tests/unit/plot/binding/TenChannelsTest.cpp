#include "plot/binding/TenChannels.h"

#include "tests/support/PlotFixture.h"

namespace plotvane {
namespace {

using Range = test::FakeChart::Range;

class TenChannelsTest : public test::PlotFixture {
protected:
    // A record of the OBD form, as the parser leaves it.
    void TickObd() {
        state.obdNow = true;
        for (int slot = 0; slot < kSlotCount; ++slot) Empty(slot);
        channels.PrepareSlots();
        channels.UpdateChannels();
    }

    SlotSelection selection{plot};
    FuelFigures fuel{{"MPG", "L/100km", "Gal. per Hour"}};
    TenChannels channels{plot, selection, fuel, prefs};
};

TEST_F(TenChannelsTest, TheFirstObdRecordExchangesTheLayout) {
    slots.obdValues = {12, 128};
    TickObd();
    EXPECT_TRUE(panel.tenChannels);
    for (std::size_t trace = 0; trace < 10; ++trace)
        EXPECT_EQ(chart.ranges[trace], (Range{-1, 256})) << trace;
    EXPECT_EQ(chart.ranges[10], (Range{0, 100}));
    EXPECT_EQ(panel.obdValues[0], "12");
    EXPECT_EQ(panel.obdValues[1], "128");
    EXPECT_EQ(panel.obdValues[9], "0");
    EXPECT_EQ(plot.values, (TraceValues{12, 128, 0, 0, 0, 0, 0, 0, 0, 0, -1, -1}));
    EXPECT_EQ(panel.obdSwatches[0], chart.GetTraceColor(0));
    for (std::size_t slot = 4; slot < kSlotCount; ++slot) EXPECT_EQ(panel.values[slot], "0 ") << slot;
}

TEST_F(TenChannelsTest, AnUntickedChannelRunsAtMinusOne) {
    slots.obdValues = {12, 128};
    TickObd();
    panel.obdShown[1] = false;
    TickObd();
    EXPECT_EQ(plot.values[0], 12.0);
    EXPECT_EQ(plot.values[1], -1.0);
    EXPECT_EQ(panel.obdSwatches[1], test::FakePanel::kInactive);
    EXPECT_EQ(panel.obdValues[1], "128");
    EXPECT_EQ(panel.layouts, 1);
}

TEST_F(TenChannelsTest, EachTickHidesTheFirstFrameAndUnticksTheSlots) {
    TickObd();
    selection.SelectSlot(0, 0);
    panel.shown.fill(true);
    EXPECT_EQ(panel.frame, 0);
    TickObd();
    EXPECT_EQ(panel.frame, -1);
    EXPECT_EQ(panel.shown, (std::array<bool, kSlotCount>{}));
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
    state.obdNow = false;
    channels.PrepareSlots();
    EXPECT_FALSE(panel.tenChannels);
    EXPECT_EQ(chart.ranges[0], (Range{0, 50}));
    EXPECT_EQ(chart.ranges[1], (Range{-1, 51}));
    EXPECT_EQ(chart.ranges[3], (Range{-3, 53}));
    EXPECT_EQ(chart.ranges[4], (Range{-1, 256}));
    EXPECT_EQ(plot.values[0], 7.0);   // slot (0, 0)
    EXPECT_EQ(plot.values[9], -3.0);  // slot (2, 3), the last to write there
    EXPECT_EQ(plot.values[6], 0.0);   // (2, 0), behind (1, 3)
    EXPECT_EQ(panel.selected, 0);
    EXPECT_TRUE(panel.shown[0]);
    EXPECT_FALSE(panel.shown[4]);
}

TEST_F(TenChannelsTest, TheWayBackSelectsTheFirstSlot) {
    TickObd();
    for (int slot = 0; slot < kSlotCount; ++slot) Fill(slot, 1, 0, 0.0, "");
    selection.SelectSlot(1, 1);
    state.obdNow = false;
    channels.PrepareSlots();
    EXPECT_EQ(panel.selected, 0);
}

TEST_F(TenChannelsTest, TheFuelFiguresComeFromTheTwoRowsThatAreLeft) {
    state.obdNow = true;
    Fill(4, 7, 0, 8.0, "l/h");
    Fill(5, 7, 1, 100.0, "km/h");
    channels.PrepareSlots();
    channels.UpdateChannels();
    EXPECT_TRUE(panel.fuelButtons);
    EXPECT_DOUBLE_EQ(fuel.Consumption(), 8.0);
    EXPECT_EQ(panel.values[4], "8 l/h");
}

TEST_F(TenChannelsTest, NothingHappensWhileTheFormStays) {
    channels.PrepareSlots();
    EXPECT_EQ(panel.layouts, 0);
    EXPECT_EQ(chart.rangesSet, 0);
}

}  // namespace
}  // namespace plotvane
