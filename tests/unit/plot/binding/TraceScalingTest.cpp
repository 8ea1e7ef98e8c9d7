#include "plot/binding/TraceScaling.h"

#include "tests/support/PlotFixture.h"

namespace plotvane {
namespace {

using Range = test::FakeChart::Range;

class TraceScalingTest : public test::PlotFixture {
protected:
    // Does what the loop does once a record is parsed.
    void Tick() {
        if (ranges.LoadModuleScaling("038-906-019-FT.SCL") == ModuleLoad::Loaded) scaling.ApplyLoadedRanges();
        scaling.UpdateSlots();
    }

    SlotSelection selection{sample, panel};
    TraceScaling scaling{sample, views, selection};
};

TEST_F(TraceScalingTest, AFirstRecordIsShownScaledAndSelected) {
    FillEngineGroup();
    Tick();
    EXPECT_EQ(panel.values[0], "780 /min");
    EXPECT_EQ(panel.values[1],
              "90 \xB0"
              "C");
    EXPECT_EQ(panel.values[2], "50 km/h");
    EXPECT_EQ(panel.values[3], "4.2 l/h");
    for (int slot = 4; slot < kSlotCount; ++slot) EXPECT_EQ(panel.values[slot], "") << slot;

    EXPECT_EQ(chart.ranges[0], (Range{0, 6000}));
    EXPECT_EQ(chart.ranges[1], (Range{-10, 120}));
    EXPECT_EQ(chart.ranges[2], (Range{0, 250}));
    EXPECT_EQ(chart.ranges[3], (Range{0, 100}));
    EXPECT_EQ(chart.ranges[4], (Range{0, 100}));

    EXPECT_EQ(sample.values[0], 780.0);
    EXPECT_EQ(sample.values[1], 90.0);
    EXPECT_EQ(sample.values[2], 50.0);
    EXPECT_EQ(sample.values[3], 4.2);

    EXPECT_EQ(panel.selected, 0);
    EXPECT_EQ(panel.limits, std::make_pair(0, 6000));
    EXPECT_TRUE(state.redrawRequest);
    EXPECT_EQ(panel.pixelShift, 3);
}

TEST_F(TraceScalingTest, SwatchesTakeTheTraceColourWhereTheTraceIsShown) {
    FillEngineGroup();
    Tick();
    for (int slot = 0; slot < 4; ++slot) {
        EXPECT_TRUE(panel.shown[slot]);
        EXPECT_EQ(panel.swatches[slot], chart.GetTraceColor(slot));
    }
    EXPECT_FALSE(panel.shown[4]);
    EXPECT_EQ(panel.swatches[4], test::FakePanel::kInactive);
}

TEST_F(TraceScalingTest, AnUntickedSlotStaysUntickedAndRunsAlongItsMinimum) {
    FillEngineGroup();
    Tick();
    panel.shown[1] = false;
    Tick();
    EXPECT_FALSE(panel.shown[1]);
    EXPECT_EQ(sample.values[1], -10.0);
    EXPECT_EQ(panel.swatches[1], test::FakePanel::kInactive);
    EXPECT_EQ(panel.values[1],
              "90 \xB0"
              "C");
}

TEST_F(TraceScalingTest, ASlotThatEmptiesIsUntickedAndOneThatFillsIsTicked) {
    FillEngineGroup();
    Tick();
    Empty(1);
    Tick();
    EXPECT_FALSE(panel.shown[1]);
    EXPECT_EQ(panel.values[1], "");
    Fill(1, 1, 1, 91.0,
         "\xB0"
         "C");
    Tick();
    EXPECT_TRUE(panel.shown[1]);
}

TEST_F(TraceScalingTest, AChosenRangeWinsOverTheDefaultOfTheUnit) {
    LoadModule("038-906-019-FT.SCL");
    ranges.SetMax(1, 0, 5000);
    ranges.SetMin(1, 1, -40);
    FillEngineGroup();
    scaling.UpdateSlots();
    EXPECT_EQ(ranges.RangeOf(1, 1), (ScaleRange{-40, 120}));
    EXPECT_EQ(ranges.RangeOf(1, 0), (ScaleRange{0, 5000}));
    EXPECT_EQ(chart.ranges[0], (Range{0, 5000}));
}

// The slots keep their groups, so that nothing but the unit brings the new limit.
TEST_F(TraceScalingTest, EitherLimitOfTheUnitAloneReachesTraceAndMeterAtOnce) {
    test::WriteBytes(folder / "Defaults.cfg", "low,-20,100,\nhigh,0,70,\nnone,1,2,\n");
    Fill(0, 1, 0, 5.0, "");
    Fill(1, 1, 1, 5.0, "");
    Tick();
    ASSERT_EQ(chart.ranges[0], (Range{0, 100}));

    slots[0].unit = "low";
    slots[1].unit = "high";
    Tick();
    EXPECT_EQ(chart.ranges[0], (Range{-20, 100}));
    EXPECT_EQ(meters.slots[0].minimum, -20.0);
    EXPECT_EQ(chart.ranges[1], (Range{0, 70}));
    EXPECT_EQ(meters.slots[1].maximum, 70.0);
}

TEST_F(TraceScalingTest, UnitsAreMatchedWholeAndCaseSensitive) {
    FillEngineGroup();
    slots[2].unit = "KM/H";
    Tick();
    EXPECT_EQ(chart.ranges[2], (Range{0, 100}));
}

// The slot keeps its group, so nothing but the unit brings the new range.
TEST_F(TraceScalingTest, TheRangeOfTheUnitReachesTheMeterOfAnotherModuleToo) {
    FillEngineGroup();
    Tick();
    LoadModule("038-906-019-GH.SCL");
    scaling.ApplyLoadedRanges();
    EXPECT_EQ(meters.slots[0].maximum, 100.0);
    scaling.UpdateSlots();
    EXPECT_EQ(chart.ranges[0], (Range{0, 6000}));
    EXPECT_EQ(meters.slots[0].maximum, 6000.0);
    EXPECT_EQ(meters.slots[1].minimum, -10.0);
}

TEST_F(TraceScalingTest, AnEditedRangeReachesTraceAndMeterAtTheNextTick) {
    FillEngineGroup();
    Tick();
    ranges.SetMax(1, 0, 3000);
    slots[0].rangeChanged = true;
    Tick();
    EXPECT_EQ(chart.ranges[0], (Range{0, 3000}));
    EXPECT_EQ(meters.slots[0].maximum, 3000.0);
    EXPECT_EQ(meters.slots[0].units, "/min");
    EXPECT_FALSE(slots[0].rangeChanged);
}

TEST_F(TraceScalingTest, AnEditWaitsWhileTheTraceIsUnticked) {
    FillEngineGroup();
    Tick();
    panel.shown[0] = false;
    ranges.SetMax(1, 0, 3000);
    slots[0].rangeChanged = true;
    Tick();
    EXPECT_EQ(chart.ranges[0], (Range{0, 6000}));
    panel.shown[0] = true;
    Tick();
    EXPECT_EQ(chart.ranges[0], (Range{0, 3000}));
}

TEST_F(TraceScalingTest, ASteadyRecordTouchesNoRange) {
    FillEngineGroup();
    Tick();
    const int before = chart.rangesSet;
    const int selections = panel.selections;
    state.redrawRequest = false;
    Tick();
    EXPECT_EQ(chart.rangesSet, before);
    EXPECT_EQ(panel.selections, selections);
    EXPECT_FALSE(state.redrawRequest);
}

TEST_F(TraceScalingTest, AReassignedSlotTakesItsRangeAtOnce) {
    FillEngineGroup();
    Tick();
    state.redrawRequest = false;
    ranges.SetMax(7, 0, 40);
    Fill(0, 7, 0, 12.0, "V");
    Tick();
    EXPECT_EQ(chart.ranges[0], (Range{0, 40}));
    EXPECT_EQ(meters.slots[0].maximum, 40.0);
    EXPECT_EQ(slots[0].lastGroup, 7);
    EXPECT_TRUE(state.redrawRequest);
}

TEST_F(TraceScalingTest, WhileHaltedNoSlotIsReassigned) {
    LoadModule("038-906-019-FT.SCL");
    FillEngineGroup();
    state.halted = true;
    scaling.UpdateSlots();
    EXPECT_EQ(slots[0].lastGroup, -1);
}

TEST_F(TraceScalingTest, LoadedRangesGoToTracesCountedOverTheSlotsInUse) {
    LoadModule("038-906-019-FT.SCL");
    ranges.SetMax(1, 1, 42);
    Fill(1, 1, 1, 1.0, "");
    scaling.ApplyLoadedRanges();
    EXPECT_EQ(chart.ranges[0], (Range{0, 42}));
    EXPECT_EQ(chart.ranges[1], (Range{0, 100}));
    scaling.UpdateSlots();
    EXPECT_EQ(chart.ranges[1], (Range{0, 42}));
}

TEST_F(TraceScalingTest, AGroupOutsideTheTableShowsItsValueAndLeavesTheTracesAlone) {
    FillEngineGroup();
    Fill(0, 300, 0, 780.0, "/min");
    Tick();
    EXPECT_EQ(panel.values[0], "780 /min");
    const int before = chart.rangesSet;
    Tick();
    EXPECT_EQ(chart.rangesSet, before);
}

TEST_F(TraceScalingTest, GenericObdIdentifiersAreNamedBelowTheirValues) {
    state.obdFile = true;
    Fill(0, 12, 0, 780.0, "/min");
    Fill(1, 13, 0, 51.0, "km/h");
    for (int slot = 2; slot < kSlotCount; ++slot) Empty(slot);
    ASSERT_EQ(ranges.LoadModuleScaling("OBD.SCL"), ModuleLoad::Loaded);
    scaling.UpdateSlots();
    EXPECT_EQ(panel.values[0], "780 /min");
    EXPECT_EQ(panel.values[4], "PID 12");
    EXPECT_EQ(panel.values[1], "51 km/h");
    EXPECT_EQ(panel.values[5], "PID 13");
    for (const int slot : {2, 3, 6, 7, 8, 9, 10, 11}) EXPECT_EQ(panel.values[slot], "") << slot;
    EXPECT_EQ(ranges.RangeOf(12, 0).max, 6000);
    EXPECT_EQ(ranges.RangeOf(13, 0).max, 250);
}

TEST_F(TraceScalingTest, GenericObdValuesClearTheTextsOfOtherSlots) {
    for (int slot = 0; slot < kSlotCount; ++slot) Fill(slot, 1, 0, 1.0, "V");
    Tick();
    state.obdFile = true;
    Fill(0, 12, 0, 780.0, "/min");
    for (int slot = 1; slot < kSlotCount; ++slot) Empty(slot);
    scaling.UpdateSlots();
    EXPECT_EQ(panel.values[0], "780 /min");
    EXPECT_EQ(panel.values[4], "PID 12");
    for (const int slot : {1, 2, 3, 5, 6, 7, 8, 9, 10, 11}) EXPECT_EQ(panel.values[slot], "") << slot;
}

TEST_F(TraceScalingTest, AReassignedSlotSelectsTheFirst) {
    for (int slot = 0; slot < kSlotCount; ++slot) Fill(slot, 1 + RowOf(slot), ColumnOf(slot), 1.0, "V");
    Tick();
    selection.SelectSlot(2, 2);
    slots[5].group = 9;
    Tick();
    EXPECT_EQ(panel.selected, 0);
}

TEST_F(TraceScalingTest, ALambdaOffersTheAirFuelRatio) {
    Fill(0, 31, 0, 0.98, "");
    Tick();
    Tick();
    EXPECT_TRUE(panel.airFuelShown[0]);
    EXPECT_EQ(panel.values[0], "0.98 ");
    EXPECT_DOUBLE_EQ(sample.values[0], 0.98);
}

TEST_F(TraceScalingTest, WithTheSwitchOnTheValueItselfBecomesTheRatio) {
    Fill(0, 31, 0, 1.0, "");
    Tick();
    panel.airFuelOn[0] = true;
    slots[0].value = 1.02;
    Tick();
    EXPECT_EQ(panel.values[0], "15.0");
    EXPECT_DOUBLE_EQ(slots[0].value, 1.02 * 14.7);
    EXPECT_DOUBLE_EQ(sample.values[0], 1.02 * 14.7);
    EXPECT_TRUE(panel.airFuelShown[0]);
}

TEST_F(TraceScalingTest, AtReassignmentTheRuleMeetsTheRatioAndHidesTheButtonForOneTick) {
    Fill(0, 31, 0, 1.0, "");
    panel.airFuelOn[0] = true;
    Tick();
    EXPECT_FALSE(panel.airFuelShown[0]);
    EXPECT_EQ(panel.values[0], "14.7");
    slots[0].value = 1.0;
    Tick();
    EXPECT_TRUE(panel.airFuelShown[0]);
    EXPECT_EQ(panel.values[0], "14.7");
}

TEST_F(TraceScalingTest, TheButtonHidesWhenTheGroupHasNoLambdas) {
    Fill(0, 31, 0, 1.0, "");
    Tick();
    Tick();
    ASSERT_TRUE(panel.airFuelShown[0]);
    Fill(0, 30, 0, 1.0, "");
    Tick();
    EXPECT_FALSE(panel.airFuelShown[0]);
}

}  // namespace
}  // namespace plotvane
