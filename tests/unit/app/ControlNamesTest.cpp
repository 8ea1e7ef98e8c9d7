#include "app/ControlNames.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "res/resource.h"

namespace plotvane {
namespace {

std::string TextOf(unsigned id) {
    switch (id) {
        case IDS_TIP_SCALE_NEXT:
            return "Next value (Page Down)";
        case IDS_TIP_SHOW:
            return "Draw this value";
        default:
            return "text " + std::to_string(id);
    }
}

class ControlNamesTest : public testing::Test {
protected:
    std::string NameOf(int control) const { return NameOfControl(control, tips); }

    ProgramData data{"Scaling"};
    LabelTable labels;
    TipTexts tips{data, labels, TextOf};
};

TEST_F(ControlNamesTest, OfAButtonIsItsTipWithoutTheKey) {
    EXPECT_EQ(NameOf(IDC_SCALE_NEXT), "Next value");
    EXPECT_EQ(NameOf(IDC_STOP), "text " + std::to_string(IDS_TIP_STOP));
}

TEST_F(ControlNamesTest, OfACheckBoxSaysWhereItsValueStands) {
    EXPECT_EQ(NameOf(IDC_SHOW_FIRST), "Draw this value, A1");
    EXPECT_EQ(NameOf(IDC_SHOW_FIRST + 5), "Draw this value, B2");
    EXPECT_EQ(NameOf(IDC_SHOW_LAST), "Draw this value, C4");
    EXPECT_EQ(NameOf(IDC_CHANNEL_SHOW_FIRST), "Draw this value, 1");
    EXPECT_EQ(NameOf(IDC_CHANNEL_SHOW_LAST), "Draw this value, 10");
}

TEST_F(ControlNamesTest, TellEveryNamelessControlFromTheOthers) {
    std::set<std::string> names;
    for (const int control : NamelessControls()) EXPECT_TRUE(names.insert(NameOf(control)).second) << control;
    EXPECT_EQ(names.size(), 9u + 12u + 10u);
    EXPECT_FALSE(names.contains(""));
}

}  // namespace
}  // namespace plotvane
