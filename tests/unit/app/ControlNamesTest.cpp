#include "app/ControlNames.h"

#include <gtest/gtest.h>

#include <set>

#include "link/ProgramData.h"
#include "res/resource.h"
#include "tests/support/PlotFixture.h"

namespace plotvane::test {
namespace {

// The string table.
std::string TextOf(unsigned id) {
    switch (id) {
        case IDS_TIP_SCALE_NEXT:
            return "Next value (Page Down)";
        case IDS_TIP_SHOW:
            return "Draw this value";
        case IDS_TIP_GROUP:
            return "Group";
        case IDS_TIP_FIELD:
            return "field";
        case IDS_NAME_COLOUR:
            return "Color";
        case IDS_NAME_VALUE:
            return "Value";
        case IDS_NAME_REPLAY_SPEED:
            return "Replay speed";
        default:
            return "text " + std::to_string(id);
    }
}

// What the controls show.
std::string ShownBy(int control) {
    switch (control) {
        case IDC_MAX_LABEL:
            return "Max:";
        case IDC_MIN_LABEL:
            return "Min:";
        case IDC_REPLAY_SPEED:
            return "0.5x";
        default:
            return control >= IDC_AIR_FUEL_FIRST && control <= IDC_AIR_FUEL_LAST ? "A/F" : "";
    }
}

class ControlNamesTest : public PlotFixture {
protected:
    // Puts a field into a slot, for the tips and for the selection.
    void Put(int slot, int group, int field) {
        Fill(slot, group, field, 0.0, "/min");
        data.slots[slot] = slots[slot];
    }

    ProgramData data{"Scaling"};
    LabelTable labels;
    TipTexts tips{data, labels, TextOf};
    SlotSelection selection{sample, panel};
    ControlNames names{tips, selection, TextOf, ShownBy};
};

TEST_F(ControlNamesTest, OfAButtonIsItsTipWithoutTheKey) {
    EXPECT_EQ(names.Of(IDC_SCALE_NEXT), "Next value");
    EXPECT_EQ(names.Of(IDC_STOP), "text " + std::to_string(IDS_TIP_STOP));
}

TEST_F(ControlNamesTest, OfACheckBoxSaysWhereItsValueStands) {
    EXPECT_EQ(names.Of(IDC_SHOW_FIRST), "Draw this value, A1");
    EXPECT_EQ(names.Of(IDC_SHOW_FIRST + 5), "Draw this value, B2");
    EXPECT_EQ(names.Of(IDC_SHOW_LAST), "Draw this value, C4");
    EXPECT_EQ(names.Of(IDC_CHANNEL_SHOW_FIRST), "Draw this value, 1");
    EXPECT_EQ(names.Of(IDC_CHANNEL_SHOW_LAST), "Draw this value, 10");
}

TEST_F(ControlNamesTest, OfAValueBoxSaysWhatItsFieldIsAndWhereItStands) {
    Put(6, 3, 2);
    EXPECT_EQ(names.Of(IDC_VALUE_FIRST + 6), "Group 3, field 3, B3");
    labels.SetField(3, 3, "Air (mass)", "actual");
    EXPECT_EQ(names.Of(IDC_VALUE_FIRST + 6), "Air (mass) actual, B3");
    labels.SetGroupTitle(3, "EGR");
    EXPECT_EQ(names.Of(IDC_VALUE_FIRST + 6), "EGR - Air (mass) actual, B3");
}

TEST_F(ControlNamesTest, OfABoxWithoutAFieldSaysOnlyWhereItStands) {
    EXPECT_EQ(names.Of(IDC_VALUE_FIRST), "Value, A1");
    EXPECT_EQ(names.Of(IDC_VALUE_LAST), "Value, C4");
    EXPECT_EQ(names.Of(IDC_CHANNEL_VALUE_FIRST + 9), "Value, 10");
}

TEST_F(ControlNamesTest, OfASwatchSaysWhichColourItIs) {
    EXPECT_EQ(names.Of(IDC_SWATCH_WINDOW_FIRST + 4), "Color, B1");
    EXPECT_EQ(names.Of(IDC_CHANNEL_SWATCH_WINDOW_FIRST + 2), "Color, 3");
}

// The first two buttons of rows B and C have each other's ids.
TEST_F(ControlNamesTest, OfAnAirFuelButtonIsItsTextWithThePlaceOfItsSlot) {
    const char* const places[] = {"A1", "A2", "A3", "A4", "B2", "B1", "B3", "B4", "C2", "C1", "C3", "C4"};
    for (int button = 0; button < kSlotCount; ++button)
        EXPECT_EQ(names.Of(IDC_AIR_FUEL_FIRST + button), std::string("A/F, ") + places[button]);
}

TEST_F(ControlNamesTest, OfALimitSaysWhichValueItIsFor) {
    EXPECT_EQ(names.Of(IDC_SCALE_MAX), "Max, A1");
    Put(9, 7, 1);
    selection.SelectSlot(2, 1);
    EXPECT_EQ(names.Of(IDC_SCALE_MAX), "Max, C2");
    EXPECT_EQ(names.Of(IDC_SCALE_MIN), "Min, C2");
}

TEST_F(ControlNamesTest, OfTheReplaySpeedSaysTheSpeed) {
    EXPECT_EQ(names.Of(IDC_REPLAY_SPEED), "Replay speed, 0.5x");
}

TEST_F(ControlNamesTest, TellEveryControlFromTheOthers) {
    std::set<int> controls(NamelessControls().begin(), NamelessControls().end());
    EXPECT_EQ(controls.size(), NamelessControls().size());
    controls.insert({IDC_CHART, IDC_ELAPSED});
    for (int slot = 0; slot < kSlotCount; ++slot) {
        Put(slot, 1, 0);
        controls.insert({IDC_VALUE_FIRST + slot, IDC_SWATCH_WINDOW_FIRST + slot});
    }
    for (int channel = 0; channel < kChannelCount; ++channel)
        controls.insert({IDC_CHANNEL_VALUE_FIRST + channel, IDC_CHANNEL_SWATCH_WINDOW_FIRST + channel});
    std::set<std::string> told;
    for (const int control : controls) EXPECT_TRUE(told.insert(names.Of(control)).second) << control;
    EXPECT_EQ(told.size(), 9u + 3u + 3 * (12u + 10u) + 12u + 2u);
    EXPECT_FALSE(told.contains(""));
}

TEST_F(ControlNamesTest, OfOthersAreLeftToTheSystem) {
    for (const int control : {IDC_SHIFT_LABEL, IDC_MAX_LABEL, IDC_FRAME_ROW_A_FIRST, IDC_STATIC})
        EXPECT_EQ(names.Of(control), "") << control;
}

}  // namespace
}  // namespace plotvane::test
