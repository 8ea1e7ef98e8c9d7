#include "model/RecordBuffer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace plotvane {
namespace {

TEST(RecordBuffer, TextEndsAtTheFirstNul) {
    RecordBuffer record;
    EXPECT_TRUE(record.Append("038 906 019 FT,"));
    EXPECT_TRUE(record.Append("G000,,,,"));
    EXPECT_EQ(record.Text(), "038 906 019 FT,G000,,,,");
    record.Clear();
    EXPECT_EQ(record.Text(), "");
}

TEST(RecordBuffer, AFullBlockWithoutNulIsAllText) {
    RecordBuffer record;
    std::ranges::fill(record.Block(), 'x');
    EXPECT_EQ(record.Text(), std::string(513, 'x'));
}

TEST(RecordBuffer, TextEndsAfterWhatWasAdded) {
    RecordBuffer record;
    std::ranges::fill(record.Block(), 'x');
    record.Block()[2] = '\0';
    EXPECT_TRUE(record.Append("yz"));
    EXPECT_EQ(record.Text(), "xxyz");
}

TEST(RecordBuffer, RefusesTextThatDoesNotFit) {
    RecordBuffer record;
    EXPECT_TRUE(record.Append(std::string(511, 'x')));
    EXPECT_FALSE(record.Append("yz"));
    EXPECT_EQ(record.Text(), std::string(511, 'x'));
    EXPECT_TRUE(record.Append("y"));
    EXPECT_EQ(record.Text().size(), 512u);
}

}  // namespace
}  // namespace plotvane
