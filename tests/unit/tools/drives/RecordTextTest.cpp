#include "tools/drives/RecordText.h"

#include <gtest/gtest.h>

#include "tests/support/DegreeSign.h"

namespace plotvane {
namespace {

TEST(RecordText, WritesFieldsAndEmptySlots) {
    RecordText record("038 906 019 FT");
    record.AddField(1, 0, "780", "/min");
    record.AddField(31, 3, "90.0", DEGREES_C);
    record.AddEmptySlot();
    record.AddField(120, 9, "1.02", "");
    EXPECT_EQ(record.Text(),
              "038 906 019 FT,G001,F0,780,/min,G031,F3,90.0," DEGREES_C ",G000,,,,G120,F9,1.02,,");
}

TEST(RecordText, WritesObdFields) {
    RecordText record("OBD");
    record.AddChannel(0, "1");
    record.AddChannel(9, "255");
    EXPECT_EQ(record.Text(), "OBD,GZER,F0,1,,GZER,F9,255,,");
}

TEST(PipeBlock, IsTheRecordAndNuls) {
    const auto block = MakeBlock("M,G000,,,,");
    ASSERT_TRUE(block);
    EXPECT_EQ(block->size(), 513u);
    EXPECT_EQ(std::string_view(block->data(), block->size()), "M,G000,,,," + std::string(503, '\0'));
}

TEST(PipeBlock, HoldsTextUpToItsLastByte) {
    const auto block = MakeBlock(std::string(513, 'x'));
    ASSERT_TRUE(block);
    EXPECT_EQ(std::string(block->begin(), block->end()), std::string(513, 'x'));
    EXPECT_FALSE(MakeBlock(std::string(514, 'x')));
}

TEST(PipeBlock, CannotBeginWithAControlCode) {
    EXPECT_FALSE(MakeBlock(""));
    EXPECT_FALSE(MakeBlock("\xFFM,"));
    EXPECT_FALSE(MakeBlock("\xFEM,"));
    EXPECT_FALSE(MakeBlock("\xFDM,"));
    EXPECT_TRUE(MakeBlock("\xFCM,"));
}

}  // namespace
}  // namespace plotvane
