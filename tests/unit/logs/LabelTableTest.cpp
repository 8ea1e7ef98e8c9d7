#include "logs/LabelTable.h"

#include <gtest/gtest.h>

#include <climits>

namespace plotvane {
namespace {

TEST(LabelTable, IsEmptyAtFirstAndAfterAReset) {
    LabelTable table;
    EXPECT_EQ(table.GroupTitle(1), "");
    table.SetGroupTitle(1, "Idle");
    table.SetField(255, 4, "Speed", "actual");
    table.Reset();
    EXPECT_EQ(table.GroupTitle(1), "");
    EXPECT_EQ(table.FieldName(255, 4), "");
    EXPECT_EQ(table.FieldSecondText(255, 4), "");
}

TEST(LabelTable, KeepsNineTextsForEachGroup) {
    LabelTable table;
    for (const int group : {1, 2, 254, 255}) {
        const std::string g = std::to_string(group);
        table.SetGroupTitle(group, "t" + g);
        for (int field = 1; field <= 4; ++field)
            table.SetField(group, field, "n" + g + std::to_string(field), "s" + g + std::to_string(field));
    }
    for (const int group : {1, 2, 254, 255}) {
        const std::string g = std::to_string(group);
        EXPECT_EQ(table.GroupTitle(group), "t" + g);
        for (int field = 1; field <= 4; ++field) {
            EXPECT_EQ(table.FieldName(group, field), "n" + g + std::to_string(field));
            EXPECT_EQ(table.FieldSecondText(group, field), "s" + g + std::to_string(field));
        }
    }
}

TEST(LabelTable, AnswersEmptyForAnyOtherNumber) {
    LabelTable table;
    for (const int group : {INT_MIN, -1, 0, 256, 999, INT_MAX}) {
        table.SetGroupTitle(group, "x");
        table.SetField(group, 1, "x", "x");
        EXPECT_EQ(table.GroupTitle(group), "");
        EXPECT_EQ(table.FieldName(group, 1), "");
        EXPECT_EQ(table.FieldSecondText(group, 1), "");
    }
    table.SetGroupTitle(1, "title");
    for (const int field : {INT_MIN, -1, 0, 5, 9, INT_MAX}) {
        table.SetField(1, field, "x", "x");
        EXPECT_EQ(table.FieldName(1, field), "");
        EXPECT_EQ(table.FieldSecondText(1, field), "");
    }
    EXPECT_EQ(table.GroupTitle(1), "title");
}

TEST(LabelTable, CutsTexts) {
    LabelTable table;
    table.SetGroupTitle(1, std::string(129, 't'));
    table.SetField(1, 1, std::string(129, 'n'), std::string(33, 's'));
    EXPECT_EQ(table.GroupTitle(1), std::string(128, 't'));
    EXPECT_EQ(table.FieldName(1, 1), std::string(128, 'n'));
    EXPECT_EQ(table.FieldSecondText(1, 1), std::string(32, 's'));
}

}  // namespace
}  // namespace plotvane
