#include "plot/binding/SlotSelection.h"

#include "tests/support/PlotFixture.h"

namespace plotvane {
namespace {

class SlotSelectionTest : public test::PlotFixture {
protected:
    void FillAll() {
        for (int slot = 0; slot < kSlotCount; ++slot) Fill(slot, 1 + RowOf(slot), ColumnOf(slot), 0.0, "x");
    }
    SlotSelection selection{sample, panel};
};

TEST_F(SlotSelectionTest, ShowsTheFrameAndTheLimitsOfTheSlot) {
    FillAll();
    ranges.SetMin(2, 3, -10);
    ranges.SetMax(2, 3, 120);
    selection.SelectSlot(1, 3);
    EXPECT_EQ(panel.selected, 7);
    EXPECT_EQ(panel.limits, std::make_pair(-10, 120));
}

TEST_F(SlotSelectionTest, NextWalksRowByRowAndStopsAtTheLast) {
    FillAll();
    selection.SelectSlot(0, 0);
    for (int slot = 1; slot < kSlotCount; ++slot) {
        selection.SelectNext();
        EXPECT_EQ(panel.selected, slot);
    }
    const int selections = panel.selections;
    selection.SelectNext();
    EXPECT_EQ(panel.selected, SlotOf(2, 3));
    EXPECT_EQ(panel.selections, selections + 1);  // its limits are shown again
}

TEST_F(SlotSelectionTest, PreviousWalksBackAndStopsAtTheFirst) {
    FillAll();
    selection.SelectSlot(2, 3);
    for (int slot = 10; slot >= 0; --slot) {
        selection.SelectPrevious();
        EXPECT_EQ(panel.selected, slot);
    }
    const int selections = panel.selections;
    selection.SelectPrevious();
    EXPECT_EQ(panel.selected, 0);
    EXPECT_EQ(panel.selections, selections + 1);
}

TEST_F(SlotSelectionTest, AnInactiveSlotGivesTheFirstOne) {
    FillEngineGroup();
    selection.SelectSlot(1, 0);
    EXPECT_EQ(panel.selected, 0);
}

TEST_F(SlotSelectionTest, TheFirstSlotIsSelectedEvenWhenInactive) {
    selection.SelectSlot(2, 2);
    EXPECT_EQ(panel.selected, 0);
    EXPECT_EQ(panel.limits, std::make_pair(0, 100));
}

TEST_F(SlotSelectionTest, ATypedLimitIsTakenAndMarksTheSlot) {
    FillEngineGroup();
    selection.SelectSlot(0, 2);
    selection.SetMaximum("180");
    EXPECT_EQ(ranges.RangeOf(1, 2).max, 180);
    EXPECT_TRUE(slots[2].rangeChanged);
    slots[2].rangeChanged = false;
    selection.SetMinimum("-20 km/h");
    EXPECT_EQ(ranges.RangeOf(1, 2).min, -20);
    EXPECT_TRUE(slots[2].rangeChanged);
    EXPECT_FALSE(slots[0].rangeChanged);
}

TEST_F(SlotSelectionTest, TextWithoutANumberOrTheSameNumberChangesNothing) {
    FillEngineGroup();
    selection.SelectSlot(0, 0);
    for (const char* text : {"", "abc", "100"}) {
        selection.SetMaximum(text);
        EXPECT_EQ(ranges.RangeOf(1, 0).max, 100) << text;
        EXPECT_FALSE(slots[0].rangeChanged) << text;
    }
    for (const char* text : {"", "abc", "0"}) {
        selection.SetMinimum(text);
        EXPECT_EQ(ranges.RangeOf(1, 0).min, 0) << text;
        EXPECT_FALSE(slots[0].rangeChanged) << text;
    }
}

TEST_F(SlotSelectionTest, ShowsTheLimitsAgainThatItsSlotHas) {
    FillEngineGroup();
    selection.SelectSlot(0, 2);
    selection.SetMaximum("180");
    panel.limits = {};
    EXPECT_TRUE(selection.ShowAgain());
    EXPECT_EQ(panel.selected, 2);
    EXPECT_EQ(panel.limits, std::make_pair(0, 180));
}

TEST_F(SlotSelectionTest, HasNothingToShowAgainBeforeTheFirstSelection) {
    EXPECT_FALSE(selection.ShowAgain());
    EXPECT_EQ(panel.selections, 0);
}

TEST_F(SlotSelectionTest, AMaximumBelowTheMinimumIsTaken) {
    FillEngineGroup();
    selection.SelectSlot(0, 0);
    selection.SetMaximum("-5");
    EXPECT_EQ(ranges.RangeOf(1, 0), (ScaleRange{0, -5}));
}

}  // namespace
}  // namespace plotvane
