#include "scaling/PrefsNames.h"

#include <gtest/gtest.h>

#include <set>

#include "res/resource.h"

namespace plotvane {
namespace {

// The string table.
std::string TextOf(unsigned id) {
    switch (id) {
        case IDS_LINE:
            return "Line";
        case IDS_NAME_COLOUR:
            return "Color";
        case IDS_NAME_VALUE:
            return "Value";
        case IDS_NAME_NEXT_UNIT:
            return "Next unit";
        case IDS_NAME_PREVIOUS_UNIT:
            return "Previous unit";
        default:
            return "text " + std::to_string(id);
    }
}

// What the controls show while the eighth trace is chosen.
std::string ShownBy(int control) {
    switch (control) {
        case IDC_PREFS_HEADING_FIRST:
            return "Red";
        case IDC_PREFS_HEADING_FIRST + 1:
            return "Green";
        case IDC_PREFS_HEADING_FIRST + 2:
            return "Blue";
        case IDC_PREFS_HEADING_FIRST + 3:
            return "Color presets";
        case IDC_PREFS_BACK_NAME:
            return "&Background";
        case IDC_PREFS_GRID_NAME:
            return "&Grid";
        case IDC_PREFS_TRACE_LIST:
            return "Line 8";
        default:
            return "";
    }
}

std::string NameOf(int control) {
    return NameOfPrefsControl(control, ShownBy, TextOf);
}

TEST(PrefsNamesTest, OfASliderAreItsPartAndItsRow) {
    EXPECT_EQ(NameOf(IDC_PREFS_BACK_RED), "Red, Background");
    EXPECT_EQ(NameOf(IDC_PREFS_GRID_GREEN), "Green, Grid");
    EXPECT_EQ(NameOf(IDC_PREFS_BACK_BLUE), "Blue, Background");
    EXPECT_EQ(NameOf(IDC_PREFS_TRACE_BLUE), "Blue, Line 8");
}

TEST(PrefsNamesTest, OfANumberIsThatOfItsSliderAsAValue) {
    EXPECT_EQ(NameOf(IDC_PREFS_BACK_RED_TEXT + 1), "Value, Green, Background");
    EXPECT_EQ(NameOf(IDC_PREFS_GRID_RED_TEXT), "Value, Red, Grid");
    EXPECT_EQ(NameOf(IDC_PREFS_TRACE_RED_TEXT + 2), "Value, Blue, Line 8");
}

TEST(PrefsNamesTest, OfListsAndSwatchesSayTheirRow) {
    EXPECT_EQ(NameOf(IDC_PREFS_BACK_PRESET), "Color presets, Background");
    EXPECT_EQ(NameOf(IDC_PREFS_GRID_PRESET), "Color presets, Grid");
    EXPECT_EQ(NameOf(IDC_PREFS_TRACE_PRESET), "Color presets, Line 8");
    EXPECT_EQ(NameOf(IDC_PREFS_SWATCH_WINDOW_FIRST), "Color, Background");
    EXPECT_EQ(NameOf(IDC_PREFS_SWATCH_WINDOW_FIRST + 2), "Color, Line 8");
}

TEST(PrefsNamesTest, OfTheOthersSayWhatTheyAreFor) {
    EXPECT_EQ(NameOf(IDC_PREFS_TRACE_LIST), "Line");
    EXPECT_EQ(NameOf(IDC_PREFS_ROW_PREVIOUS), "Previous unit");
    EXPECT_EQ(NameOf(IDC_PREFS_ROW_NEXT), "Next unit");
}

TEST(PrefsNamesTest, TellEveryControlFromTheOthers) {
    std::set<int> controls(NamelessPrefsControls().begin(), NamelessPrefsControls().end());
    EXPECT_EQ(controls.size(), 9u + 9u + 3u + 3u);
    for (int row = 0; row < 3; ++row) controls.insert(IDC_PREFS_SWATCH_WINDOW_FIRST + row);
    std::set<std::string> told;
    for (const int control : controls) EXPECT_TRUE(told.insert(NameOf(control)).second) << control;
    EXPECT_FALSE(told.contains(""));
}

TEST(PrefsNamesTest, OfControlsWithALabelAreLeftToTheSystem) {
    for (const int control : {IDC_PREFS_THICKNESS, IDC_PREFS_ROW_UNIT, IDC_PREFS_ROW_LABEL, IDC_STATIC})
        EXPECT_EQ(NameOf(control), "") << control;
}

}  // namespace
}  // namespace plotvane
