#include "history/ChartColumns.h"

#include <gtest/gtest.h>

#include <vector>

namespace plotvane {
namespace {

// The samples in the columns from 0 on; -1 for nothing.
std::vector<std::int64_t> Seen(const ChartColumns& columns, int count) {
    std::vector<std::int64_t> seen;
    for (int column = 0; column < count; ++column) seen.push_back(columns.SampleAt(column).value_or(-1));
    return seen;
}
using Samples = std::vector<std::int64_t>;

TEST(ChartColumns, HaveNothingAtFirst) {
    EXPECT_EQ(Seen(ChartColumns(), 3), (Samples{-1, -1, -1}));
}

// Between two samples the line is still on its way from the earlier one.
TEST(ChartColumns, HaveTheSampleAtOrBeforeThem) {
    ChartColumns columns;
    columns.AddSample(10, 3);
    columns.AddSample(11, 3);
    columns.AddSample(12, 3);
    EXPECT_EQ(Seen(columns, 9), (Samples{12, 11, 11, 11, 10, 10, 10, -1, -1}));
    EXPECT_FALSE(columns.SampleAt(-1));
}

TEST(ChartColumns, FollowAChangeOfThePixelShift) {
    ChartColumns columns;
    columns.AddSample(0, 1);
    columns.AddSample(1, 1);
    columns.AddSample(2, 4);
    columns.AddSample(3, 2);
    EXPECT_EQ(Seen(columns, 9), (Samples{3, 2, 2, 1, 1, 1, 1, 0, -1}));
}

TEST(ChartColumns, HaveTheLastOfTheSamplesInOneColumn) {
    ChartColumns columns;
    columns.AddSample(0, 2);
    columns.AddSample(1, 0);
    columns.AddSample(2, 0);
    EXPECT_EQ(Seen(columns, 2), (Samples{2, -1}));
}

// The chart draws from the gap's far edge on, but no sample belongs there.
TEST(ChartColumns, HaveNothingInAGap) {
    ChartColumns columns;
    columns.AddSample(0, 2);
    columns.AddSample(1, 2);
    columns.AddGap(5);
    EXPECT_EQ(Seen(columns, 8), (Samples{-1, -1, -1, -1, -1, 1, 0, 0}));
    columns.AddSample(2, 2);
    EXPECT_EQ(Seen(columns, 10), (Samples{2, -1, -1, -1, -1, -1, -1, 1, 0, 0}));
}

TEST(ChartColumns, HaveNothingWhereTheChartWasCleared) {
    ChartColumns columns;
    columns.AddSample(0, 3);
    columns.AddSample(1, 3);
    columns.Clear();
    EXPECT_EQ(Seen(columns, 4), (Samples{-1, -1, -1, -1}));
    columns.AddSample(2, 3);
    EXPECT_EQ(Seen(columns, 5), (Samples{2, 1, 1, 1, -1}));
}

TEST(ChartColumns, HaveNothingThatWasForgotten) {
    ChartColumns columns;
    columns.AddSample(7, 3);
    columns.Forget();
    EXPECT_EQ(Seen(columns, 2), (Samples{-1, -1}));
    columns.AddSample(0, 3);
    EXPECT_EQ(Seen(columns, 5), (Samples{0, -1, -1, -1, -1}));
}

TEST(ChartColumns, HaveNothingForASampleThatIsNotRecorded) {
    ChartColumns columns;
    columns.AddSample(0, 1);
    columns.AddSample(-1, 1);
    columns.AddSample(-1, 1);
    EXPECT_EQ(Seen(columns, 3), (Samples{-1, -1, 0}));
}

TEST(ChartColumns, KnowThousandsOfSamples) {
    ChartColumns columns;
    for (std::int64_t sample = 0; sample < 10'000; ++sample) columns.AddSample(sample, 1);
    EXPECT_EQ(columns.SampleAt(4000), 5999);
    EXPECT_FALSE(columns.SampleAt(5000));
}

}  // namespace
}  // namespace plotvane
