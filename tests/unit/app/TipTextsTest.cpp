#include "app/TipTexts.h"

#include <gtest/gtest.h>

#include "res/resource.h"

namespace plotvane {
namespace {

// The words of the string table, and for all else its number.
std::string TextOf(unsigned id) {
    switch (id) {
        case IDS_FIELD_NUMBER:
            return "Field#";
        case IDS_TIP_GROUP:
            return "Group";
        case IDS_TIP_FIELD:
            return "field";
        case IDS_TIP_PID:
            return "PID";
        case IDS_TIP_TO:
            return "to";
        default:
            return "text " + std::to_string(id);
    }
}

class TipTextsTest : public testing::Test {
protected:
    TipTextsTest() {
        Fill(0, 1, 0, "/min");
        data.ranges.SetMax(1, 0, 6000);
    }
    void Fill(int slot, int group, int field, std::string unit) {
        data.slots[slot].group = group;
        data.slots[slot].field = field;
        data.slots[slot].unit = std::move(unit);
    }

    ProgramData data{"Scaling"};
    LabelTable labels;
    TipTexts tips{data, labels, TextOf};
};

TEST_F(TipTextsTest, ASlotTellsItsNamesNumbersAndRange) {
    labels.SetGroupTitle(1, "Engine");
    labels.SetField(1, 1, "Engine speed", "actual");
    EXPECT_EQ(tips.Of(IDC_VALUE_FIRST), "Engine - Engine speed actual\nGroup 1, field 1\n0 to 6000 /min");
    EXPECT_EQ(tips.Of(IDC_SWATCH_WINDOW_FIRST), tips.Of(IDC_VALUE_FIRST));
}

TEST_F(TipTextsTest, WhatHasNoNameIsLeftOut) {
    EXPECT_EQ(tips.Of(IDC_VALUE_FIRST), "Group 1, field 1\n0 to 6000 /min");
    labels.SetGroupTitle(1, "Engine");
    EXPECT_EQ(tips.Of(IDC_VALUE_FIRST), "Engine\nGroup 1, field 1\n0 to 6000 /min");
    labels.SetGroupTitle(1, "");
    labels.SetField(1, 1, "", "actual");
    EXPECT_EQ(tips.Of(IDC_VALUE_FIRST), "actual\nGroup 1, field 1\n0 to 6000 /min");
}

TEST_F(TipTextsTest, AValueWithoutAUnitHasOnlyItsRange) {
    Fill(11, 31, 3, "");
    EXPECT_EQ(tips.Of(IDC_VALUE_FIRST + 11), "Group 31, field 4\n0 to 100");
}

TEST_F(TipTextsTest, AnEmptySlotHasNoTip) {
    EXPECT_EQ(tips.Of(IDC_VALUE_FIRST + 1), "");
    EXPECT_EQ(tips.Of(IDC_SWATCH_WINDOW_FIRST + 1), "");
}

TEST_F(TipTextsTest, AnOtherModulesLabelsCountAtOnce) {
    labels.SetGroupTitle(1, "Engine");
    labels.Reset();
    labels.SetGroupTitle(1, "Gearbox");
    EXPECT_EQ(tips.Of(IDC_VALUE_FIRST).substr(0, 8), "Gearbox\n");
}

TEST_F(TipTextsTest, GenericObdDataIsNumberedByIdentifier) {
    data.state.obdFile = true;
    Fill(0, 12, 0, "/min");
    EXPECT_EQ(tips.Of(IDC_VALUE_FIRST), "PID 12\n0 to 100 /min");
}

TEST_F(TipTextsTest, AChannelIsNumberedAsItsMeterIs) {
    EXPECT_EQ(tips.Of(IDC_CHANNEL_VALUE_FIRST + 2), "Field#3\n-1 to 256");
    EXPECT_EQ(tips.Of(IDC_CHANNEL_SWATCH_WINDOW_FIRST + 9), "Field#10\n-1 to 256");
}

TEST_F(TipTextsTest, EveryButtonHasOne) {
    for (const int button :
         {IDC_STOP, IDC_PAUSE, IDC_LOAD_LOG, IDC_REPLAY_SLOWER, IDC_REPLAY_FASTER, IDC_SCALE_NEXT,
          IDC_SCALE_PREVIOUS, IDC_SHIFT_DOWN, IDC_SHIFT_UP, IDC_MILEAGE, IDC_CONSUMPTION, IDC_AIR_FUEL_FIRST,
          IDC_AIR_FUEL_LAST, IDC_SHOW_FIRST, IDC_SHOW_LAST, IDC_CHANNEL_SHOW_FIRST, IDC_CHANNEL_SHOW_LAST})
        EXPECT_EQ(tips.Of(button).substr(0, 5), "text ") << button;
    EXPECT_EQ(tips.Of(IDC_STOP), "text " + std::to_string(IDS_TIP_STOP));
}

TEST_F(TipTextsTest, OtherControlsHaveNone) {
    for (const int control : {IDC_CHART, IDC_SCALE_MIN, IDC_SCALE_MAX, IDC_ELAPSED, IDC_STATIC})
        EXPECT_EQ(tips.Of(control), "") << control;
}

}  // namespace
}  // namespace plotvane
