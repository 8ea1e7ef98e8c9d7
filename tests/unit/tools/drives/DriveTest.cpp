#include "tools/drives/Drive.h"

#include <gtest/gtest.h>

#include <limits>

namespace plotvane {
namespace {

// The first channel always has this value.
class SteadyDrive final : public Drive {
public:
    explicit SteadyDrive(double value) : m_value(value) {}

    const DriveChannels& Channels() const override { return channels; }
    double Seconds() const override { return 1; }
    double Value(int, double) const override { return m_value; }
    std::string_view Phase(double) const override { return ""; }

    DriveChannels channels;

private:
    double m_value;
};

std::string Text(double value, int decimals) {
    SteadyDrive drive(value);
    drive.channels[0].decimals = decimals;
    return ValueText(drive, 0, 0.0);
}

int Byte(double value, double lowest, double highest) {
    SteadyDrive drive(value);
    drive.channels[0].lowest = lowest;
    drive.channels[0].highest = highest;
    return RawByte(drive, 0, 0.0);
}

TEST(DriveValueText, HasTheDecimalsOfItsChannel) {
    EXPECT_EQ(Text(12.347, 0), "12");
    EXPECT_EQ(Text(12.347, 1), "12.3");
    EXPECT_EQ(Text(-12.347, 2), "-12.35");
}

TEST(DriveValueText, ShowsNoNegativeZero) {
    EXPECT_EQ(Text(-0.0, 0), "0");
    EXPECT_EQ(Text(-0.04, 1), "0.0");
    EXPECT_EQ(Text(-0.06, 1), "-0.1");
}

TEST(DriveValueText, EndsAtNineDigits) {
    EXPECT_EQ(Text(1e300, 0), "999999999");
    EXPECT_EQ(Text(-1e300, 3), "-999999999.000");
}

TEST(DriveRawByte, RunsFrom0To255OverTheRangeOfTheChannel) {
    EXPECT_EQ(Byte(-10, -10, 10), 0);
    EXPECT_EQ(Byte(-6, -10, 10), 51);
    EXPECT_EQ(Byte(0, -10, 10), 128);  // 127.5, rounded away from zero
    EXPECT_EQ(Byte(10, -10, 10), 255);
}

TEST(DriveRawByte, StaysAtTheEndsBeyondTheRange) {
    EXPECT_EQ(Byte(-11, -10, 10), 0);
    EXPECT_EQ(Byte(11, -10, 10), 255);
}

TEST(DriveRawByte, IsZeroWithoutARange) {
    EXPECT_EQ(Byte(5, 5, 5), 0);
    EXPECT_EQ(Byte(5, 6, 5), 0);
}

TEST(DriveRawByte, TakesTheWidestRangeOfDoubles) {
    constexpr double kLargest = std::numeric_limits<double>::max();
    EXPECT_EQ(Byte(-kLargest, -kLargest, kLargest), 0);
    EXPECT_EQ(Byte(0, -kLargest, kLargest), 128);
    EXPECT_EQ(Byte(kLargest, -kLargest, kLargest), 255);
}

}  // namespace
}  // namespace plotvane
