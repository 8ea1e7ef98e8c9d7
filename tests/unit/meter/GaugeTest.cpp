#include "meter/Gauge.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/DegreeSign.h"

namespace plotvane {
namespace {

std::string ValueText(const Gauge& gauge) {
    std::string text;
    gauge.AppendValueText(text);
    return text;
}

std::string PeakText(const Gauge& gauge) {
    std::string text;
    gauge.AppendPeakText(text, "peak:");
    return text;
}

std::string Labels(const Gauge& gauge) {
    std::string text;
    gauge.AppendMinLabel(text);
    text += " to ";
    gauge.AppendMaxLabel(text);
    return text;
}

TEST(Gauge, StartsAsAWhiteOnBlackDialOnDarkBlue) {
    const Gauge gauge;
    EXPECT_EQ(gauge.FaceColor(), 0x000000U);
    EXPECT_EQ(gauge.TextColor(), 0xC8C8C8U);
    EXPECT_EQ(gauge.MarkerColor(), 0x00FFFFU);
    EXPECT_EQ(gauge.NeedleColor(), 0x0000FFU);
    EXPECT_EQ(gauge.NeedleShadeColor(), 0x0000A5U);
    EXPECT_EQ(gauge.BackgroundColor(), 0x800000U);
    EXPECT_EQ(gauge.TicksColor(), 0xFFFFFFU);
}

TEST(Gauge, StartsAtZeroOfAHundredWithEverythingShown) {
    const Gauge gauge;
    EXPECT_EQ(gauge.Value(), 0.0);
    EXPECT_EQ(gauge.MinValue(), 0.0);
    EXPECT_EQ(gauge.MaxValue(), 100.0);
    EXPECT_EQ(gauge.MinSeen(), 100.0);
    EXPECT_EQ(gauge.MaxSeen(), 0.0);
    EXPECT_TRUE(gauge.ShowsMaxMarker());
    EXPECT_TRUE(gauge.ShowsMinMarker());
    EXPECT_TRUE(gauge.ShowsPeak());
    EXPECT_FALSE(gauge.HasSwappedColors());
    EXPECT_EQ(ValueText(gauge), "0.000 ");
    EXPECT_EQ(PeakText(gauge), "peak: 0.000 ");
    EXPECT_EQ(Labels(gauge), "0.0 to 100.0");
}

TEST(Gauge, MovesBothMarkersToTheFirstValue) {
    Gauge gauge;
    EXPECT_EQ(gauge.SetValue(50), GaugeChange::Moving);
    EXPECT_EQ(gauge.Value(), 50);
    EXPECT_EQ(gauge.MinSeen(), 50);
    EXPECT_EQ(gauge.MaxSeen(), 50);
}

TEST(Gauge, RemembersTheLowestAndTheHighestValue) {
    Gauge gauge;
    for (const double value : {50.0, 20.0, 80.0, 30.0}) gauge.SetValue(value);
    EXPECT_EQ(gauge.Value(), 30);
    EXPECT_EQ(gauge.MinSeen(), 20);
    EXPECT_EQ(gauge.MaxSeen(), 80);
}

TEST(Gauge, ShowsTheTrueValueBeyondTheScale) {
    Gauge gauge;
    gauge.SetValueDecimals(1);
    gauge.SetValue(-12.5);
    EXPECT_EQ(ValueText(gauge), "-12.5 ");
    gauge.SetValue(140);
    EXPECT_EQ(ValueText(gauge), "140.0 ");
    EXPECT_EQ(PeakText(gauge), "peak: 140.0 ");
    EXPECT_EQ(gauge.MinSeen(), -12.5);
    EXPECT_EQ(gauge.MaxSeen(), 140);
}

TEST(Gauge, IgnoresValuesThatAreNotFinite) {
    Gauge gauge;
    gauge.SetValue(50);
    for (const double value :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
          -std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(gauge.SetValue(value), GaugeChange::None);
        EXPECT_EQ(gauge.Value(), 50);
        EXPECT_EQ(gauge.MinSeen(), 50);
        EXPECT_EQ(gauge.MaxSeen(), 50);
    }
}

TEST(Gauge, DoesNotMoveAHiddenMarker) {
    Gauge gauge;
    gauge.SetValue(50);
    gauge.ToggleMinMarker();
    gauge.SetValue(20);
    EXPECT_EQ(gauge.MinSeen(), 50);
    gauge.ToggleMinMarker();
    EXPECT_EQ(gauge.MinSeen(), 50);
    gauge.SetValue(60);
    EXPECT_EQ(gauge.MinSeen(), 50);
    gauge.SetValue(40);
    EXPECT_EQ(gauge.MinSeen(), 40);

    gauge.ToggleMaxMarker();
    gauge.SetValue(90);
    EXPECT_EQ(gauge.MaxSeen(), 60);
    gauge.ToggleMaxMarker();
    gauge.SetValue(55);
    EXPECT_EQ(gauge.MaxSeen(), 60);
    gauge.SetValue(95);
    EXPECT_EQ(gauge.MaxSeen(), 95);
}

TEST(Gauge, TracksThePeakWhetherItsTextIsShownOrNot) {
    Gauge gauge;
    gauge.TogglePeak();
    EXPECT_FALSE(gauge.ShowsPeak());
    gauge.SetValue(70);
    EXPECT_EQ(gauge.MaxSeen(), 70);
}

TEST(Gauge, RestartsTheMarkersOnANewRange) {
    Gauge gauge;
    gauge.SetValue(50);
    EXPECT_EQ(gauge.SetRange(-10, 200), GaugeChange::Whole);
    EXPECT_EQ(gauge.MinValue(), -10);
    EXPECT_EQ(gauge.MaxValue(), 200);
    EXPECT_EQ(gauge.MinSeen(), 200);
    EXPECT_EQ(gauge.MaxSeen(), -10);
    EXPECT_EQ(gauge.Value(), 50);
}

TEST(Gauge, KeepsTheMarkersOnTheSameRange) {
    Gauge gauge;
    gauge.SetValue(50);
    EXPECT_EQ(gauge.SetRange(0, 100), GaugeChange::None);
    EXPECT_EQ(gauge.MinSeen(), 50);
    EXPECT_EQ(gauge.MaxSeen(), 50);
    EXPECT_EQ(gauge.SetRange(0, 101), GaugeChange::Whole);
    EXPECT_EQ(gauge.SetRange(1, 101), GaugeChange::Whole);
    EXPECT_EQ(gauge.SetRange(1, 101), GaugeChange::None);
}

TEST(Gauge, ResetsThePeakToTheValueAndLeavesTheLowest) {
    Gauge gauge;
    for (const double value : {20.0, 80.0, 50.0}) gauge.SetValue(value);
    gauge.ResetPeak();
    EXPECT_EQ(gauge.MaxSeen(), 50);
    EXPECT_EQ(gauge.MinSeen(), 20);
}

TEST(Gauge, RequestsARepaintOnlyIfATextChanges) {
    Gauge gauge;
    EXPECT_EQ(gauge.SetValueDecimals(3), GaugeChange::None);
    EXPECT_EQ(gauge.SetValueDecimals(1), GaugeChange::Whole);
    EXPECT_EQ(gauge.SetValueDecimals(1), GaugeChange::None);
    EXPECT_EQ(gauge.SetUnits(""), GaugeChange::None);
    EXPECT_EQ(gauge.SetUnits("/min"), GaugeChange::Whole);
    EXPECT_EQ(gauge.SetUnits("/min"), GaugeChange::None);
}

TEST(Gauge, RequestsARepaintForEveryColourAndForWholeLabels) {
    Gauge gauge;
    EXPECT_EQ(gauge.SetRangeDecimalsZero(), GaugeChange::Whole);
    EXPECT_EQ(gauge.SetRangeDecimalsZero(), GaugeChange::Whole);
    EXPECT_EQ(gauge.SetNeedleColor(gauge.NeedleColor()), GaugeChange::Whole);
    EXPECT_EQ(gauge.SetBackColor(gauge.BackgroundColor()), GaugeChange::Whole);
    EXPECT_EQ(gauge.SetFaceColor(gauge.FaceColor()), GaugeChange::Whole);
    EXPECT_EQ(gauge.SetTicksColor(gauge.TicksColor()), GaugeChange::Whole);
}

TEST(Gauge, ShadesTheNeedleTo65PercentOfEachPart) {
    constexpr struct {
        Colour needle;
        Colour shade;
    } kNeedles[] = {
        {MakeColour(255, 0, 0), MakeColour(165, 0, 0)},  // 165.75
        {MakeColour(255, 255, 255), MakeColour(165, 165, 165)},
        {MakeColour(128, 192, 1), MakeColour(83, 124, 0)},    // 83.2, 124.8, 0.65
        {MakeColour(20, 100, 200), MakeColour(13, 65, 130)},  // whole numbers need no rounding
        {kBlack, kBlack},
    };
    for (const auto& [needle, shade] : kNeedles) {
        Gauge gauge;
        gauge.SetNeedleColor(needle);
        EXPECT_EQ(gauge.NeedleColor(), needle);
        EXPECT_EQ(gauge.NeedleShadeColor(), shade);
    }
}

TEST(Gauge, SetsEachColourByItself) {
    Gauge gauge;
    gauge.SetBackColor(0x010203);
    gauge.SetFaceColor(0x040506);
    gauge.SetTicksColor(0x070809);
    EXPECT_EQ(gauge.BackgroundColor(), 0x010203U);
    EXPECT_EQ(gauge.FaceColor(), 0x040506U);
    EXPECT_EQ(gauge.TicksColor(), 0x070809U);
    EXPECT_EQ(gauge.NeedleColor(), 0x0000FFU);
}

TEST(Gauge, DropsTheHighByteOfAColour) {
    Gauge gauge;
    gauge.SetNeedleColor(0x010000FF);
    gauge.SetBackColor(0xFF800000);
    gauge.SetFaceColor(0x02123456);
    gauge.SetTicksColor(0x01FFFFFF);
    EXPECT_EQ(gauge.NeedleColor(), 0x0000FFU);
    EXPECT_EQ(gauge.NeedleShadeColor(), 0x0000A5U);
    EXPECT_EQ(gauge.BackgroundColor(), 0x800000U);
    EXPECT_EQ(gauge.FaceColor(), 0x123456U);
    EXPECT_EQ(gauge.TicksColor(), 0xFFFFFFU);
}

TEST(Gauge, SwapsFaceAndTicksAndForgetsTheChosenColours) {
    Gauge gauge;
    gauge.SetFaceColor(0x102030);
    gauge.SetTicksColor(0x405060);
    EXPECT_EQ(gauge.ToggleSwappedColors(), GaugeChange::Whole);
    EXPECT_TRUE(gauge.HasSwappedColors());
    EXPECT_EQ(gauge.FaceColor(), kWhite);
    EXPECT_EQ(gauge.TicksColor(), kBlack);
    EXPECT_EQ(gauge.ToggleSwappedColors(), GaugeChange::Whole);
    EXPECT_FALSE(gauge.HasSwappedColors());
    EXPECT_EQ(gauge.FaceColor(), kBlack);
    EXPECT_EQ(gauge.TicksColor(), kWhite);
}

TEST(Gauge, WritesValueAndPeakWithTheirUnit) {
    Gauge gauge;
    gauge.SetValueDecimals(1);
    gauge.SetUnits(DEGREES_C);
    gauge.SetValue(50);
    EXPECT_EQ(ValueText(gauge), "50.0 " DEGREES_C);
    EXPECT_EQ(PeakText(gauge), "peak: 50.0 " DEGREES_C);
    gauge.SetValueDecimals(0);
    gauge.SetValue(1234.6);
    EXPECT_EQ(ValueText(gauge), "1235 " DEGREES_C);
}

TEST(Gauge, WritesTheEndsOfTheScaleAsWholeNumbersWhenTold) {
    Gauge gauge;
    gauge.SetRange(-10, 127);
    EXPECT_EQ(Labels(gauge), "-10.0 to 127.0");
    gauge.SetRangeDecimalsZero();
    EXPECT_EQ(Labels(gauge), "-10 to 127");
}

TEST(Gauge, WritesNumbersAndUnitsOfAnyLength) {
    Gauge gauge;
    const std::string unit(1000, 'u');
    gauge.SetUnits(unit);
    gauge.SetValue(std::numeric_limits<double>::max());
    // 309 digits, the point, three decimals and the blank.
    const std::string text = ValueText(gauge);
    EXPECT_EQ(text.size(), 309 + 1 + 3 + 1 + unit.size());
    EXPECT_EQ(text.substr(0, 5), "17976");
    gauge.SetRange(-std::numeric_limits<double>::max(), 1e100);
    EXPECT_EQ(Labels(gauge).size(), (1 + 309 + 2) + 4 + (101 + 2));
}

}  // namespace
}  // namespace plotvane
