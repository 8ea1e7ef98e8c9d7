#include "plot/chart/PlotTrace.h"

#include <gtest/gtest.h>

#include <limits>

namespace plotvane {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

// The main window's chart at its default size: plot 60..610 by 10..300.
class PlotTraceTest : public testing::Test {
protected:
    PlotTraceTest() {
        m_geometry.SetLabelMargin({.lower = 0.0, .upper = 6000.0, .withUnits = true, .extraCharacters = 1});
    }

    PlotTrace Between(double lower, double upper) const {
        PlotTrace trace;
        trace.SetRange(lower, upper, m_geometry.Plot().Height());
        return trace;
    }

    static int RowOf(const PlotTrace& trace, double value) { return trace.RowOfValue(value, 300); }

    TraceSegment Take(PlotTrace& trace, double value, int shift = 3) const {
        trace.current = value;
        return trace.TakeSegment(m_geometry, shift);
    }

    ChartGeometry m_geometry{620, 310};
};

TEST_F(PlotTraceTest, StartsBetweenZeroAndAHundred) {
    PlotTrace trace;
    EXPECT_EQ(trace.lower, 0.0);
    EXPECT_EQ(trace.upper, 100.0);
    EXPECT_EQ(trace.range, 100.0);
    EXPECT_EQ(trace.previous, 0.0);
    EXPECT_EQ(trace.previousY, -1);
    trace.FitTo(290);
    EXPECT_EQ(trace.verticalFactor, 2.9);
}

TEST_F(PlotTraceTest, LimitsLieOnThePlotsEdges) {
    const PlotTrace trace = Between(-10.0, 120.0);
    EXPECT_EQ(trace.range, 130.0);
    EXPECT_EQ(RowOf(trace, -10.0), 300);
    EXPECT_EQ(RowOf(trace, 120.0), 10);
}

TEST_F(PlotTraceTest, RowsAreCutTowardsTheBottomEdge) {
    EXPECT_EQ(RowOf(Between(0.0, 6000.0), 780.0), 263);  // 37.7 rows
    EXPECT_EQ(RowOf(Between(-10.0, 120.0), 90.0), 77);   // 223.07
    EXPECT_EQ(RowOf(Between(0.0, 250.0), 51.0), 241);    // 59.16
    EXPECT_EQ(RowOf(Between(0.0, 100.0), 4.2), 288);     // 12.18
    EXPECT_EQ(RowOf(Between(0.0, 100.0), -0.3), 300);    // -0.87: also towards the edge
}

TEST_F(PlotTraceTest, RowComesFromTheStoredFactor) {
    EXPECT_EQ(RowOf(Between(0.0, 250.0), 50.0), 243);  // 57.999..., not 58
}

TEST_F(PlotTraceTest, LowerLimitMayLieAboveTheUpper) {
    const PlotTrace trace = Between(100.0, 0.0);
    EXPECT_EQ(RowOf(trace, 100.0), 300);
    EXPECT_EQ(RowOf(trace, 0.0), 10);
}

TEST_F(PlotTraceTest, RangeOfZeroRunsAlongTheBottom) {
    const PlotTrace trace = Between(50.0, 50.0);
    EXPECT_EQ(trace.verticalFactor, 0.0);
    EXPECT_EQ(RowOf(trace, 50.0), 300);
    EXPECT_EQ(RowOf(trace, 1e300), 300);
}

TEST_F(PlotTraceTest, FarValuesEndAMillionRowsAway) {
    const PlotTrace trace = Between(0.0, 100.0);
    EXPECT_EQ(RowOf(trace, 1e300), 300 - 1'000'000);
    EXPECT_EQ(RowOf(trace, -1e300), 300 + 1'000'000);
    EXPECT_EQ(RowOf(trace, kInfinity), 300 - 1'000'000);
    EXPECT_EQ(RowOf(trace, -kInfinity), 300 + 1'000'000);
    EXPECT_EQ(RowOf(Between(0.0, 5e-324), 1.0), 300 - 1'000'000);
}

TEST_F(PlotTraceTest, WhatIsNotANumberLiesOnTheBottomRow) {
    EXPECT_EQ(RowOf(Between(0.0, 100.0), kNotANumber), 300);
    EXPECT_EQ(RowOf(Between(kNotANumber, 100.0), 5.0), 300);
    EXPECT_EQ(RowOf(Between(-kInfinity, kInfinity), 5.0), 300);
    EXPECT_EQ(RowOf(Between(50.0, 50.0), kInfinity), 300);
}

TEST_F(PlotTraceTest, WholeNumberLimitsMaySpanMoreThanAnInt) {
    const PlotTrace trace = Between(-2147483648.0, 2147483647.0);
    EXPECT_EQ(trace.range, 4294967295.0);
    EXPECT_EQ(RowOf(trace, 2147483647.0), 10);
}

TEST_F(PlotTraceTest, RangeKeepsItsFactorInStepWithTheHeight) {
    PlotTrace trace = Between(0.0, 200.0);
    EXPECT_EQ(trace.verticalFactor, 290.0 / 200.0);
    trace.FitTo(100);
    EXPECT_EQ(trace.verticalFactor, 0.5);
}

TEST_F(PlotTraceTest, FirstSegmentStartsAtTheRowOfZero) {
    PlotTrace engineSpeed = Between(0.0, 6000.0);
    EXPECT_EQ(Take(engineSpeed, 780.0),
              (TraceSegment{{{606, 300}, {609, 262}}, {}, PixelRect{607, 301, 611, 311}}));
    EXPECT_EQ(engineSpeed.previousY, 263);

    PlotTrace temperature = Between(-10.0, 120.0);
    EXPECT_EQ(Take(temperature, 90.0), (TraceSegment{{{606, 278}, {609, 76}}, {}, {}}));
    EXPECT_EQ(temperature.previousY, 77);

    PlotTrace speed = Between(0.0, 250.0);
    EXPECT_EQ(Take(speed, 50.0).line.to, (PixelPoint{609, 242}));
    PlotTrace flow = Between(0.0, 100.0);
    EXPECT_EQ(Take(flow, 4.2).line.to, (PixelPoint{609, 287}));
}

TEST_F(PlotTraceTest, NextSegmentStartsWhereTheLastEnded) {
    PlotTrace trace = Between(0.0, 6000.0);
    Take(trace, 780.0);
    EXPECT_EQ(trace.previous, 780.0);
    EXPECT_EQ(Take(trace, 780.0).line.from, (PixelPoint{606, 263}));
}

TEST_F(PlotTraceTest, FlatSegmentIsExtendedByAColumn) {
    PlotTrace trace = Between(0.0, 290.0);  // a row for each unit
    Take(trace, 100.0);
    EXPECT_EQ(Take(trace, 100.0), (TraceSegment{{{606, 200}, {610, 200}}, {}, {}}));
    EXPECT_EQ(Take(trace, 102.0),
              (TraceSegment{{{606, 200}, {610, 198}}, {}, {}}));  // two rows on three columns
}

TEST_F(PlotTraceTest, SteepSegmentIsExtendedByARow) {
    PlotTrace trace = Between(0.0, 290.0);
    Take(trace, 100.0);
    EXPECT_EQ(Take(trace, 103.0),
              (TraceSegment{{{606, 200}, {609, 196}}, {}, {}}));  // up: as many rows as columns
    EXPECT_EQ(Take(trace, 100.0), (TraceSegment{{{606, 197}, {609, 201}}, {}, {}}));  // down
}

TEST_F(PlotTraceTest, WithoutAShiftTheSegmentIsVertical) {
    PlotTrace trace = Between(0.0, 290.0);
    Take(trace, 100.0);
    EXPECT_EQ(Take(trace, 150.0, 0), (TraceSegment{{{609, 200}, {609, 149}}, {}, {}}));
    EXPECT_EQ(Take(trace, 150.0, 0), (TraceSegment{{{609, 150}, {609, 151}}, {}, {}}));  // a single pixel
}

TEST_F(PlotTraceTest, WipesAboveIncludingTheTopRow) {
    PlotTrace trace = Between(0.0, 290.0);
    Take(trace, 288.0);                                                      // row 12
    EXPECT_EQ(Take(trace, 289.0).wipedAbove, std::nullopt);                  // row 11
    EXPECT_EQ(Take(trace, 290.0).wipedAbove, (PixelRect{607, 0, 612, 11}));  // ends in row 10
    EXPECT_EQ(Take(trace, 288.0).wipedAbove, (PixelRect{607, 0, 612, 11}));  // starts in row 10
    EXPECT_EQ(Take(trace, 288.0).wipedAbove, std::nullopt);
    EXPECT_EQ(Take(trace, 400.0), (TraceSegment{{{606, 12}, {609, -101}}, PixelRect{607, 0, 611, 11}, {}}));
}

TEST_F(PlotTraceTest, ExtensionCountsForTheWipe) {
    PlotTrace trace = Between(0.0, 290.0);
    Take(trace, 285.0);  // row 15
    // Steep up to row 11: the line's end is then row 10.
    EXPECT_EQ(Take(trace, 289.0), (TraceSegment{{{606, 15}, {609, 10}}, PixelRect{607, 0, 611, 11}, {}}));
}

TEST_F(PlotTraceTest, WipesBelowWithoutTheBottomRow) {
    PlotTrace trace = Between(0.0, 290.0);
    Take(trace, 2.0);
    EXPECT_EQ(Take(trace, 1.0).wipedBelow, std::nullopt);                     // row 299
    EXPECT_EQ(Take(trace, 0.0).wipedBelow, (PixelRect{607, 301, 612, 311}));  // row 300
    EXPECT_EQ(Take(trace, -50.0),
              (TraceSegment{{{606, 300}, {609, 351}}, {}, PixelRect{607, 301, 611, 311}}));
}

TEST_F(PlotTraceTest, WipesBothSidesOfASegmentThroughTheWholePlot) {
    PlotTrace trace = Between(0.0, 290.0);
    Take(trace, -20.0);
    const TraceSegment segment = Take(trace, 310.0);
    EXPECT_EQ(segment.wipedAbove, (PixelRect{607, 0, 611, 11}));
    EXPECT_EQ(segment.wipedBelow, (PixelRect{607, 301, 611, 311}));
}

TEST_F(PlotTraceTest, EndAboveTheFirstRowIsTakenFromTheValueInTheNewRange) {
    PlotTrace trace = Between(0.0, 290.0);
    Take(trace, 400.0);
    EXPECT_EQ(trace.previousY, -100);
    trace.SetRange(0.0, 580.0, 290);
    EXPECT_EQ(Take(trace, 400.0).line.from.y, 100);  // 400 of 580

    trace.SetRange(0.0, 290.0, 290);
    EXPECT_EQ(Take(trace, 400.0).line.from.y, 100);  // inside: the row counts, though the range has changed
}

TEST_F(PlotTraceTest, TheFirstRowCountsAndTheRowAboveItDoesNot) {
    PlotTrace trace = Between(0.0, 290.0);
    Take(trace, 299.0);
    ASSERT_EQ(trace.previousY, 1);
    trace.SetRange(0.0, 580.0, 290);
    EXPECT_EQ(Take(trace, 299.0).line.from.y, 1);

    trace.SetRange(0.0, 290.0, 290);
    Take(trace, 300.0);
    ASSERT_EQ(trace.previousY, 0);
    trace.SetRange(0.0, 580.0, 290);
    EXPECT_EQ(Take(trace, 300.0).line.from.y, 150);  // 300 of 580
}

TEST_F(PlotTraceTest, GapMovesTheEndWithoutALine) {
    PlotTrace trace = Between(0.0, 290.0);
    Take(trace, 100.0);
    trace.current = 50.0;
    trace.TakeGap(m_geometry);
    EXPECT_EQ(trace.previous, 50.0);
    EXPECT_EQ(trace.previousY, 250);
    EXPECT_EQ(Take(trace, 60.0).line.from, (PixelPoint{606, 250}));
}

}  // namespace
}  // namespace plotvane
