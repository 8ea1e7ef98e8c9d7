#include "plot/chart/SampleSpread.h"

#include <gtest/gtest.h>

#include <vector>

namespace plotvane {
namespace {

std::vector<int> Shifts(SampleSpread& spread, int count, int plotWidth) {
    std::vector<int> shifts;
    for (int i = 0; i < count; ++i) shifts.push_back(spread.Take(3, plotWidth));
    return shifts;
}

TEST(SampleSpread, IsOffUntilAskedFor) {
    SampleSpread spread;
    EXPECT_EQ(spread.Take(3, 550), 3);
    spread.SetSamplesPerScreen(0);
    EXPECT_EQ(spread.Take(15, 550), 15);
}

TEST(SampleSpread, FillsThePlotWithOneSampleLessThanAsked) {
    SampleSpread spread;
    spread.SetSamplesPerScreen(5);
    EXPECT_EQ(Shifts(spread, 8, 10), (std::vector{2, 3, 3, 2, 2, 3, 3, 2}));
}

TEST(SampleSpread, SpreadsEvenlyWhenTheWidthDivides) {
    SampleSpread spread;
    spread.SetSamplesPerScreen(6);
    EXPECT_EQ(Shifts(spread, 10, 550), (std::vector(10, 110)));
}

TEST(SampleSpread, UsesANewWidthFromTheNextScreen) {
    SampleSpread spread;
    spread.SetSamplesPerScreen(3);
    EXPECT_EQ(Shifts(spread, 1, 100), (std::vector{50}));
    EXPECT_EQ(Shifts(spread, 3, 40), (std::vector{50, 20, 20}));
}

TEST(SampleSpread, SingleSampleTakesTheWholeWidth) {
    SampleSpread spread;
    spread.SetSamplesPerScreen(1);
    EXPECT_EQ(Shifts(spread, 2, 550), (std::vector{550, 550}));
}

}  // namespace
}  // namespace plotvane
