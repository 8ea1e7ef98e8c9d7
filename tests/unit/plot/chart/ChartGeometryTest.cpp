#include "plot/chart/ChartGeometry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace plotvane {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

// The main window's chart at its default size.
ChartGeometry Usual() {
    ChartGeometry geometry(620, 310);
    geometry.SetLabelMargin({.lower = 0.0, .upper = 6000.0, .withUnits = true, .extraCharacters = 1});
    return geometry;
}

TEST(ChartGeometry, KeepsTenPixelsFromTheEdgesAndTwentyOnTheLeft) {
    const ChartGeometry geometry(620, 310);
    EXPECT_EQ(geometry.Client(), (PixelRect{0, 0, 620, 310}));
    EXPECT_EQ(geometry.Plot(), (PixelRect{20, 10, 610, 300}));
    EXPECT_EQ(geometry.Plot().Height(), 290);
}

TEST(ChartGeometry, LabelMarginCountsDigitsUnitsAndExtraCharacters) {
    EXPECT_EQ(Usual().Plot(), (PixelRect{60, 10, 610, 300}));  // (3 + 2 + 4 + 1) * 6

    ChartGeometry geometry(620, 310);
    geometry.SetLabelMargin({.lower = 0.0, .upper = 100.0, .withUnits = false, .extraCharacters = 3});
    EXPECT_EQ(geometry.Plot().left, (2 + 4 + 3) * 6);
    EXPECT_EQ(geometry.Plot().right, 610);
}

TEST(ChartGeometry, LabelMarginMayLeaveThePlotWithoutAnInside) {
    ChartGeometry geometry(60, 40);
    geometry.SetLabelMargin({.lower = 0.0, .upper = 6000.0, .withUnits = true, .extraCharacters = 1});
    EXPECT_TRUE(geometry.Plot().IsEmpty());
    EXPECT_TRUE(ChartGeometry(300, 20).Plot().IsEmpty());
    EXPECT_TRUE(ChartGeometry().Plot().IsEmpty());
}

TEST(LabelDigits, TakesTheLongerLimit) {
    EXPECT_EQ(LabelDigits(0.0, 6000.0), 3);
    EXPECT_EQ(LabelDigits(-10.0, 120.0), 2);
    EXPECT_EQ(LabelDigits(-25000.0, 120.0), 4);
}

TEST(LabelDigits, CutsTheLogarithmTowardsZero) {
    EXPECT_EQ(LabelDigits(0.0, 9.0), 0);
    EXPECT_EQ(LabelDigits(0.0, 99.0), 1);
    EXPECT_EQ(LabelDigits(0.0, 1000.0), 3);
    EXPECT_EQ(LabelDigits(0.0, 999.0), 2);
    EXPECT_EQ(LabelDigits(0.0, 0.5), 0);
    EXPECT_EQ(LabelDigits(0.001, 1.0), 3);  // also in front of the first digit
}

TEST(LabelDigits, LimitWithoutAMagnitudeAddsNothing) {
    EXPECT_EQ(LabelDigits(0.0, 0.0), 0);
    EXPECT_EQ(LabelDigits(-kInfinity, 50.0), 1);
    EXPECT_EQ(LabelDigits(50.0, kNotANumber), 1);
}

TEST(LabelDigits, StopsAtTwelve) {
    EXPECT_EQ(LabelDigits(0.0, 1e12), 12);
    EXPECT_EQ(LabelDigits(0.0, 1e300), 12);
    EXPECT_EQ(LabelDigits(-1e-300, 1.0), 12);
}

TEST(ChartGeometry, GridLinesDivideThePlotEvenly) {
    const ChartGeometry geometry = Usual();
    // Nine lines on 290 rows and 550 columns.
    EXPECT_EQ(geometry.GridRow(1, 9), 39);
    EXPECT_EQ(geometry.GridRow(5, 9), 155);
    EXPECT_EQ(geometry.GridRow(9, 9), 271);
    EXPECT_EQ(geometry.GridColumn(1, 9), 115);
    EXPECT_EQ(geometry.GridColumn(9, 9), 555);
    EXPECT_EQ(geometry.GridRow(3, 6), 134);  // multiplied first: three times a seventh part would be 133
}

TEST(ChartGeometry, ScrolledAreaHasTheRightColumnButNotTheBottomRow) {
    EXPECT_EQ(Usual().ScrolledArea(), (PixelRect{60, 10, 611, 300}));
}

TEST(ChartGeometry, ScrollLaysBareTheLastColumns) {
    EXPECT_EQ(Usual().BaredStrip(3), (PixelRect{608, 10, 611, 300}));
    EXPECT_EQ(Usual().BaredStrip(30), (PixelRect{581, 10, 611, 300}));
}

}  // namespace
}  // namespace plotvane
