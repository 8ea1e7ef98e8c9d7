#include <gtest/gtest.h>

#include <chrono>
#include <limits>
#include <vector>

#include "tests/support/ChartFixture.h"

namespace plotvane::test {
namespace {

using Numbers = std::vector<int>;

// One trace at a time, without grid and labels.
class ChartTrace : public ChartFixture {
protected:
    ChartTrace() { ShowOneTraceOnly(); }

    // The columns of a row, or the rows of a column, that show the trace.
    Numbers ColumnsOf(int y) {
        const Shown shown(chart);
        Numbers columns;
        for (int x = 0; x < 620; ++x) {
            if (shown.At(x, y) == kRed) columns.push_back(x);
        }
        return columns;
    }
    Numbers RowsOf(int x) {
        const Shown shown(chart);
        Numbers rows;
        for (int y = 0; y < 310; ++y) {
            if (shown.At(x, y) == kRed) rows.push_back(y);
        }
        return rows;
    }

    static Numbers Run(int first, int last) {
        Numbers numbers;
        for (int i = first; i <= last; ++i) numbers.push_back(i);
        return numbers;
    }
};

TEST_F(ChartTrace, SegmentStartsOneColumnBeforeTheShiftAndEndsOneBeforeTheEdge) {
    Append(100);
    Append(100);
    // The first sample came steeply from the bottom; its last column has scrolled to 606.
    EXPECT_EQ(ColumnsOf(200), Run(606, 609));
}

TEST_F(ChartTrace, FirstSegmentComesFromTheRowOfZero) {
    Append(190);
    const Numbers rows = RowsOf(606);
    ASSERT_FALSE(rows.empty());
    EXPECT_EQ(rows.back(), kBottom);
    EXPECT_EQ(RowsOf(609).front(), 110);  // one row further: the line primitive omits its last pixel
    EXPECT_EQ(RowsOf(610), Numbers{});
}

TEST_F(ChartTrace, ScrollsByThePixelShift) {
    Append(100);
    state.pixelShift = 7;
    Append(100);
    EXPECT_EQ(ColumnsOf(200), Run(602, 609));
    state.pixelShift = 1;
    Append(100);
    EXPECT_EQ(ColumnsOf(200), Run(601, 609));
}

TEST_F(ChartTrace, ScrollsOutOfThePlotAtItsLeftEdge) {
    for (int i = 0; i < 300; ++i) Append(100);
    EXPECT_EQ(ColumnsOf(200), Run(kLeft, 609));
}

TEST_F(ChartTrace, TheBottomRowDoesNotScroll) {
    TraceValues values;
    values.fill(50);  // keeps the black traces away from the bottom row
    values[kTrace] = 0;
    for (int i = 0; i < 10; ++i) chart.AppendPoints(values);
    EXPECT_EQ(ColumnsOf(kBottom), Run(606, 609));
    values[kTrace] = 100;
    for (int i = 0; i < 10; ++i) chart.AppendPoints(values);
    EXPECT_EQ(ColumnsOf(kBottom), Run(606, 609));
}

TEST_F(ChartTrace, IsWipedAboveThePlotWithItsTopRow) {
    Append(280);
    Append(280);
    Append(301);  // from row 20 in column 606 to row -1: seven rows per column
    const Numbers rows = RowsOf(607);
    ASSERT_FALSE(rows.empty());
    EXPECT_EQ(rows.front(), kTop + 1);
    EXPECT_EQ(RowsOf(608), Numbers{});
    EXPECT_EQ(RowsOf(609), Numbers{});
}

TEST_F(ChartTrace, IsWipedBelowThePlotWithoutItsBottomRow) {
    Append(10);
    Append(10);
    Append(-11);  // from row 290 to row 311
    EXPECT_EQ(RowsOf(607).back(), kBottom);
    EXPECT_EQ(RowsOf(608), Numbers{});
    EXPECT_EQ(RowsOf(609), Numbers{});
}

// Wiping starts one column after the first pixel of the segment.
TEST_F(ChartTrace, FirstPixelOfASegmentOutsideThePlotStays) {
    Append(295);
    Append(295);
    EXPECT_EQ(ColumnsOf(5), Numbers{606});
    chart.InvalidateCtrl();
    Append(-5);
    Append(-5);
    EXPECT_EQ(ColumnsOf(305), Numbers{606});
}

TEST_F(ChartTrace, GapLeavesThirtyEmptyColumnsAndMovesTheEnd) {
    Append(100);
    Append(100);
    chart.AppendGap(Values(150));
    EXPECT_EQ(ColumnsOf(200), Run(576, 579));
    EXPECT_EQ(ColumnsOf(150), Numbers{});
    EXPECT_EQ(state.pixelShift, 3);

    Append(150);
    EXPECT_EQ(ColumnsOf(200), Run(573, 576));
    EXPECT_EQ(ColumnsOf(150), Run(606, 609));  // connected to the values of the gap
}

TEST_F(ChartTrace, WithoutAShiftSegmentsAreInTheLastColumn) {
    Append(100);
    Append(100);
    state.pixelShift = 0;
    Append(150);
    EXPECT_EQ(ColumnsOf(200), Run(606, 609));  // has not scrolled
    EXPECT_EQ(RowsOf(609), Run(150, 200));
    Append(150);
    EXPECT_EQ(RowsOf(609), Run(150, 200));
    Append(140);
    EXPECT_EQ(RowsOf(609), Run(150, 200));
    Append(90);
    EXPECT_EQ(RowsOf(609), Run(150, 210));
}

TEST_F(ChartTrace, SpreadsTheWidthOverTheSamplesOfAScreen) {
    chart.SetSamplesPerScreen(5);  // 556 columns in four steps
    Append(100);
    Append(100);
    EXPECT_EQ(ColumnsOf(200), Run(610 - 139 - 1, 609));
}

TEST_F(ChartTrace, SettersThatRedrawEraseTheTraces) {
    const auto isErased = [&] { return ColumnsOf(200).empty(); };
    const auto draw = [&] {
        Append(100);
        Append(100);
        EXPECT_FALSE(isErased());
    };
    draw();
    chart.SetRange(0, 290, kTrace);
    EXPECT_TRUE(isErased());
    draw();
    chart.SetBackgroundColor(kBlack);
    EXPECT_TRUE(isErased());
    draw();
    chart.SetGridColor(kBlack);
    EXPECT_TRUE(isErased());
    draw();
    chart.SetXUnits("", "", "");
    EXPECT_TRUE(isErased());
    draw();
    chart.SetYUnits("", "", "");
    EXPECT_TRUE(isErased());
    draw();
    chart.InvalidateCtrl();
    EXPECT_TRUE(isErased());
}

TEST_F(ChartTrace, ContinuesFromItsLastEndAfterAFullRedraw) {
    Append(100);
    chart.InvalidateCtrl();
    Append(100);
    EXPECT_EQ(ColumnsOf(200), Run(606, 609));
}

TEST_F(ChartTrace, ContinuesFromItsLastEndInANewWindow) {
    Append(100);
    Recreate(626, 316);
    EXPECT_EQ(ColumnsOf(200), Numbers{});
    Append(100);
    EXPECT_EQ(ColumnsOf(200), Run(606, 609));
}

TEST_F(ChartTrace, NewColourAppliesFromTheNextSegment) {
    Append(100);
    chart.SetTraceColor(0x00FF00, kTrace);
    Append(100);
    EXPECT_EQ(chart.GetTraceColor(kTrace), 0x00FF00u);
    const Shown shown(chart);
    EXPECT_EQ(shown.At(606, 200), 0x00FF00u);
    EXPECT_EQ(shown.At(605, 220), kRed);  // of the first, steep segment
}

TEST_F(ChartTrace, ThicknessIsThePensWidth) {
    const auto rowsAt = [&](int thickness) {
        prefs.thickness = thickness;
        chart.SetTraceColor(kRed, kTrace);
        for (int i = 0; i < 20; ++i) Append(100);
        const std::size_t rows = RowsOf(590).size();
        chart.InvalidateCtrl();
        return rows;
    };
    EXPECT_EQ(rowsAt(0), 1u);
    EXPECT_EQ(rowsAt(1), 1u);
    EXPECT_EQ(rowsAt(5), 5u);
    EXPECT_EQ(rowsAt(10), 10u);
    EXPECT_EQ(rowsAt(0x7FFFFFFF), 10u);
    EXPECT_EQ(rowsAt(-1), 1u);
}

TEST_F(ChartTrace, ThicknessAppliesOnceTheColourIsSet) {
    prefs.thickness = 5;
    for (int i = 0; i < 20; ++i) Append(100);
    EXPECT_EQ(RowsOf(590).size(), 1u);
}

TEST_F(ChartTrace, WithoutARangeRunsAlongTheBottom) {
    chart.SetRange(50, 50, kTrace);
    Append(50);
    Append(1e9);
    EXPECT_EQ(ColumnsOf(kBottom), Run(606, 609));
}

TEST_F(ChartTrace, NotANumberRunsAlongTheBottom) {
    Append(std::numeric_limits<double>::quiet_NaN());
    Append(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(ColumnsOf(kBottom), Run(606, 609));
}

TEST_F(ChartTrace, FarValuesCrossThePlotSteeply) {
    Append(145);
    Append(145);
    Append(1e300);
    EXPECT_EQ(RowsOf(606), Run(0, 155));
    EXPECT_EQ(ColumnsOf(20), Numbers{606});
    Append(-1e300);
    Append(std::numeric_limits<double>::infinity());
    Append(145);
    Append(145);
    EXPECT_EQ(ColumnsOf(155).back(), 609);
}

// A wide line is drawn as a polygon; one that ends a million rows away would take 30 ms.
TEST_F(ChartTrace, FarValuesOfWideTracesDoNotStopTheProgram) {
    prefs.thickness = 10;
    for (int k = 0; k < kTraceCount; ++k) chart.SetTraceColor(kRed, k);
    TraceValues high, low;
    high.fill(1e300);
    low.fill(-1e300);
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < 50; ++i) chart.AppendPoints(i % 2 ? high : low);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(3));
    EXPECT_EQ(RowsOf(607).front(), kTop + 1);
    EXPECT_EQ(RowsOf(607).back(), kBottom);
}

}  // namespace
}  // namespace plotvane::test
