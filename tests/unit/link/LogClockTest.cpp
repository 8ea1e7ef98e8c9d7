#include "link/LogClock.h"

#include <gtest/gtest.h>

#include <vector>

namespace plotvane {
namespace {

std::vector<double> TimesOf(const std::vector<LogStamps>& rows) {
    LogClock clock;
    std::vector<double> times;
    for (const LogStamps& row : rows) {
        clock.Take(row);
        times.push_back(clock.Seconds());
    }
    return times;
}

using Times = std::vector<double>;

TEST(LogClock, TakesTheFirstStampOfARow) {
    EXPECT_EQ(TimesOf({{12.5, 12.6, 12.7}, {0.0, 13.0, 13.1}, {0.0, 0.0, 14.0}}), (Times{12.5, 13.0, 14.0}));
}

TEST(LogClock, GivesAFirstRowWithoutAStampTheTimeZero) {
    EXPECT_EQ(TimesOf({{0.0, 0.0, 0.0}, {0.5, 0.0, 0.0}}), (Times{0.0, 0.5}));
}

TEST(LogClock, GoesOnByWhatTheReplayWaitsWhereStampsAreMissing) {
    EXPECT_EQ(TimesOf({{}, {}, {}}), (Times{0.0, 0.25, 0.5}));
    EXPECT_EQ(TimesOf({{7.0}, {}, {8.0}}), (Times{7.0, 7.25, 8.0}));
}

TEST(LogClock, DoesNotGoBackOverAMissingStamp) {
    EXPECT_EQ(TimesOf({{7.0}, {}, {7.1}, {7.5}}), (Times{7.0, 7.25, 7.25, 7.5}));
}

TEST(LogClock, GoesBackWhereTheLogDoes) {
    EXPECT_EQ(TimesOf({{7.0}, {3.0}, {3.5}}), (Times{7.0, 3.0, 3.5}));
}

}  // namespace
}  // namespace plotvane
