#include "tools/drives/CsvDrive.h"

#include <gtest/gtest.h>

namespace plotvane {
namespace {

// Rows A and B have a channel each; A begins at 10 s, B ends at 20 s.
CsvDrive TwoRows() {
    DriveChannels channels;
    channels[0].group = 1;
    channels[4].group = 3;
    channels[8].group = 5;  // a row without samples
    std::array<CsvDrive::Samples, kSlotRows> rows;
    rows[0].times = {10, 12, 14};
    rows[0].values[0] = {5, -7, 6};
    rows[1].times = {11, 20};
    rows[1].values[0] = {1, 2};
    return CsvDrive(channels, rows);
}

TEST(CsvDrive, LastsFromTheFirstSampleOfAnyRowToTheLast) {
    EXPECT_EQ(TwoRows().Seconds(), 10);
}

TEST(CsvDrive, HoldsAValueUntilTheNextOnTheRowsOwnClock) {
    const auto drive = TwoRows();
    EXPECT_EQ(drive.Value(0, -1), 5);
    EXPECT_EQ(drive.Value(0, 1.9), 5);
    EXPECT_EQ(drive.Value(0, 2), -7);
    EXPECT_EQ(drive.Value(0, 100), 6);
    EXPECT_EQ(drive.Value(4, 0), 1);
    EXPECT_EQ(drive.Value(4, 9.9), 1);
    EXPECT_EQ(drive.Value(4, 10), 2);
}

TEST(CsvDrive, KnowsTheRangeOfEachChannelAndEmptiesARowWithoutSamples) {
    const auto drive = TwoRows();
    EXPECT_EQ(drive.Channels()[0].lowest, -7);
    EXPECT_EQ(drive.Channels()[0].highest, 6);
    EXPECT_TRUE(drive.Channels()[4].IsUsed());
    EXPECT_FALSE(drive.Channels()[8].IsUsed());
}

}  // namespace
}  // namespace plotvane
