#include "history/PlotRaster.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <random>

namespace plotvane {
namespace {

constexpr Colour kGround = 0x000010;
constexpr Colour kGrid = 0xFFFFFF;
constexpr Colour kRed = 0x0000FF;
constexpr Colour kGreen = 0x00FF00;
constexpr std::uint32_t kUntouched = 0xABABABAB;

class PlotRasterTest : public testing::Test {
protected:
    void Paint(const std::vector<PlottedTrace>& traces, int thickness = 1) {
        PaintPlot({m_pixels.data(), kWidth, kHeight}, {m_plot, m_ground, traces, thickness},
                  {0, 0, kWidth, kHeight});
    }
    // Counted from the plot's corner.
    std::uint32_t At(int column, int row) const {
        return m_pixels[static_cast<std::size_t>((m_plot.top + row) * kWidth + m_plot.left + column)];
    }

    static constexpr int kWidth = 60;
    static constexpr int kHeight = 40;
    PixelRect m_plot{5, 3, 55, 33};  // 50 columns, 30 rows
    PlotGround m_ground{kGround, kGrid, {}, {}};
    std::vector<std::uint32_t> m_pixels = std::vector<std::uint32_t>(kWidth * kHeight, kUntouched);
};

TEST_F(PlotRasterTest, PaintsThePlotAndNothingElse) {
    Paint({});
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            const bool isInside = x >= 5 && x < 55 && y >= 3 && y < 33;
            ASSERT_EQ(m_pixels[static_cast<std::size_t>(y * kWidth + x)],
                      isInside ? PixelOf(kGround) : kUntouched)
                << x << ", " << y;
        }
    }
}

TEST_F(PlotRasterTest, CoversTheRowsOfEachColumn) {
    const PlottedTrace trace{kRed, {{2, 4}, {}, {7, 7}}};
    Paint({trace});
    const std::uint32_t red = PixelOf(kRed);
    for (int row = 0; row < 30; ++row) {
        EXPECT_EQ(At(0, row) == red, row >= 2 && row <= 4) << row;
        EXPECT_NE(At(1, row), red) << row;
        EXPECT_EQ(At(2, row) == red, row == 7) << row;
        EXPECT_NE(At(3, row), red) << row;
    }
}

TEST_F(PlotRasterTest, PaintsEachTraceOverTheOnesBefore) {
    const std::vector<PlottedTrace> traces{{kRed, {{0, 9}}}, {kGreen, {{5, 5}}}};
    Paint(traces);
    EXPECT_EQ(At(0, 4), PixelOf(kRed));
    EXPECT_EQ(At(0, 5), PixelOf(kGreen));
}

// What other traces hide is not painted, so this compares with painting every trace whole.
TEST(PlotRaster, ShowsOfManyTracesWhatPaintingOneOverTheOtherShows) {
    constexpr int kColumns = 150;  // in several strips
    constexpr int kRows = 40;
    std::mt19937 random(7);
    const auto from = [&](int least, int most) { return std::uniform_int_distribution(least, most)(random); };
    for (int round = 0; round < 200; ++round) {
        std::vector<PlottedTrace> traces(static_cast<std::size_t>(from(1, 12)));
        for (std::size_t i = 0; i < traces.size(); ++i) {
            traces[i].colour = static_cast<Colour>(i + 1);
            for (int column = from(0, 20); column < kColumns; ++column) {
                const int top = from(-10, kRows + 10);
                traces[i].columns.push_back({top, top + from(-2, round % 2 == 0 ? 3 : kRows)});
            }
        }
        const int thickness = from(1, 5);
        const int before = (thickness - 1) / 2;
        const int after = thickness / 2;
        std::vector<std::uint32_t> expected(kColumns * kRows, PixelOf(kGround));
        for (const PlottedTrace& trace : traces) {
            for (int column = 0; column < static_cast<int>(trace.columns.size()); ++column) {
                const RowSpan& span = trace.columns[static_cast<std::size_t>(column)];
                for (int row = span.top; row <= span.bottom; ++row) {
                    for (int y = std::max(row - before, 0); y <= std::min(row + after, kRows - 1); ++y) {
                        for (int x = std::max(column - before, 0);
                             x <= std::min(column + after, kColumns - 1); ++x)
                            expected[static_cast<std::size_t>(y * kColumns + x)] = PixelOf(trace.colour);
                    }
                }
            }
        }
        std::vector<std::uint32_t> pixels(kColumns * kRows, kUntouched);
        const PixelRect all{0, 0, kColumns, kRows};
        PaintPlot({pixels.data(), kColumns, kRows}, {all, {kGround, kGrid, {}, {}}, traces, thickness}, all);
        ASSERT_EQ(pixels, expected) << round;
    }
}

TEST_F(PlotRasterTest, CutsOffWhatLeavesThePlot) {
    const PlottedTrace trace{kRed, std::vector<RowSpan>(100, RowSpan{-50, 1'000'000})};
    Paint({trace});
    EXPECT_EQ(At(49, 0), PixelOf(kRed));
    EXPECT_EQ(At(49, 29), PixelOf(kRed));
    EXPECT_EQ(At(50, 10), kUntouched);
    EXPECT_EQ(At(10, -1), kUntouched);
    EXPECT_EQ(At(10, 30), kUntouched);
}

TEST_F(PlotRasterTest, ShowsNothingOfALineAboveOrBelowThePlot) {
    const std::vector<PlottedTrace> traces{{kRed, {{-9, -1}}}, {kGreen, {{30, 40}}}};
    Paint(traces);
    for (int row = 0; row < 30; ++row) EXPECT_EQ(At(0, row), PixelOf(kGround)) << row;
}

// Sixteen columns are painted at a time: a line reaches over their edge.
TEST_F(PlotRasterTest, ThickensALineToAllSides) {
    PlottedTrace trace{kRed, std::vector<RowSpan>(17)};
    trace.columns[16] = {10, 12};
    Paint({trace}, 4);
    for (int column = 0; column < 50; ++column) {
        for (int row = 0; row < 30; ++row) {
            const bool isCovered = column >= 15 && column <= 18 && row >= 9 && row <= 14;
            ASSERT_EQ(At(column, row) == PixelOf(kRed), isCovered) << column << ", " << row;
        }
    }
}

TEST_F(PlotRasterTest, DotsItsGrid) {
    m_ground.gridRows = {10, 99};
    m_ground.gridColumns = {21, -3};
    Paint({});
    const std::uint32_t dot = PixelOf(kGrid);
    EXPECT_EQ(At(0, 10), dot);
    EXPECT_NE(At(1, 10), dot);
    EXPECT_EQ(At(4, 10), dot);
    EXPECT_EQ(At(21, 0), dot);
    EXPECT_NE(At(21, 1), dot);
    EXPECT_EQ(At(21, 28), dot);
}

TEST_F(PlotRasterTest, StaysInsideOfASmallerPicture) {
    m_plot = {50, 30, 500, 300};
    Paint({});
    EXPECT_EQ(m_pixels.back(), PixelOf(kGround));
    m_plot = {20, 20, 20, 50};
    Paint({});
    m_plot = {-5, 0, 20, 10};
    Paint({});
    EXPECT_EQ(m_pixels.front(), kUntouched);
}

TEST_F(PlotRasterTest, PaintsAPartAsItPaintsTheWhole) {
    m_ground.gridRows = {5, 10};
    m_ground.gridColumns = {21};
    std::mt19937 random(7);
    const auto below = [&](int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); };
    std::vector<PlottedTrace> traces{{kRed, std::vector<RowSpan>(50)}, {kGreen, std::vector<RowSpan>(50)}};
    for (PlottedTrace& trace : traces) {
        for (RowSpan& span : trace.columns) span = {below(30), below(30)};
    }
    for (int thickness = 1; thickness <= 5; ++thickness) {
        Paint(traces, thickness);
        const std::vector<std::uint32_t> whole = m_pixels;
        for (int i = 0; i < 200; ++i) {
            const int left = below(kWidth);
            const int top = below(kHeight);
            const PixelRect part{left, top, left + 1 + below(kWidth - left), top + 1 + below(kHeight - top)};
            m_pixels.assign(m_pixels.size(), kUntouched);
            PaintPlot({m_pixels.data(), kWidth, kHeight}, {m_plot, m_ground, traces, thickness}, part);
            for (int y = 0; y < kHeight; ++y) {
                for (int x = 0; x < kWidth; ++x) {
                    const bool isPainted =
                        !Intersection(Intersection(m_plot, part), {x, y, x + 1, y + 1}).IsEmpty();
                    const auto at = static_cast<std::size_t>(y * kWidth + x);
                    ASSERT_EQ(m_pixels[at], isPainted ? whole[at] : kUntouched) << x << ", " << y;
                }
            }
        }
    }
}

TracePlot PlotOf(std::vector<RowSpan> columns, int thickness = 1) {
    columns.resize(50);
    return {{5, 3, 55, 33}, {kGround, kGrid, {}, {}}, {{kRed, std::move(columns)}}, thickness};
}

TEST(ChangedColumns, AreNoneOfTheSamePlot) {
    EXPECT_TRUE(ChangedColumns(PlotOf({{1, 2}}), PlotOf({{1, 2}})).IsEmpty());
}

TEST(ChangedColumns, ReachFromTheFirstToTheLastThatDiffers) {
    const TracePlot before = PlotOf({{1, 2}, {1, 2}, {1, 2}, {1, 2}});
    const ColumnRange changed = ChangedColumns(PlotOf({{1, 2}, {1, 3}, {1, 2}, {}}), before);
    EXPECT_EQ(changed.begin, 1);
    EXPECT_EQ(changed.end, 4);
}

TEST(ChangedColumns, AreLookedForOnlyRightOfThoseKept) {
    const TracePlot before = PlotOf({{1, 2}, {1, 2}, {1, 2}, {1, 2}});
    TracePlot plot = PlotOf({{1, 9}, {1, 2}, {1, 2}, {1, 3}});
    plot.kept = 2;
    const ColumnRange changed = ChangedColumns(plot, before);
    EXPECT_EQ(changed.begin, 3);
    EXPECT_EQ(changed.end, 4);
    plot.kept = 50;
    EXPECT_TRUE(ChangedColumns(plot, before).IsEmpty());
}

TEST(ChangedColumns, TakeInWhatAThickLineReaches) {
    const ColumnRange changed = ChangedColumns(PlotOf({{}, {}, {}, {1, 3}}, 4), PlotOf({}, 4));
    EXPECT_EQ(changed.begin, 2);
    EXPECT_EQ(changed.end, 6);
    const ColumnRange atEdge = ChangedColumns(PlotOf({{1, 3}}, 10), PlotOf({}, 10));
    EXPECT_EQ(atEdge.begin, 0);
    EXPECT_EQ(atEdge.end, 6);
}

TEST(ChangedColumns, AreAllWhereTheGroundTheTracesOrTheirLookDiffer) {
    const TracePlot plot = PlotOf({{1, 2}});
    TracePlot ground = plot;
    ground.ground.gridColumns = {7};
    TracePlot colour = plot;
    colour.traces[0].colour = kGreen;
    TracePlot count = plot;
    count.traces.pop_back();
    TracePlot thickness = plot;
    thickness.thickness = 2;
    for (const TracePlot& other : {ground, colour, count, thickness}) {
        const ColumnRange changed = ChangedColumns(other, plot);
        EXPECT_EQ(changed.begin, 0);
        EXPECT_EQ(changed.end, 50);
    }
}

TEST(RowScale, PutsTheLimitsInTheFirstAndTheLastRow) {
    const RowScale scale(0.0, 100.0, 101);
    EXPECT_EQ(scale.RowOf(100.0), 0);
    EXPECT_EQ(scale.RowOf(0.0), 100);
    EXPECT_EQ(scale.RowOf(25.0), 75);
    EXPECT_EQ(scale.RowOf(101.0), -1);
    EXPECT_EQ(scale.RowOf(-1.0), 101);
}

TEST(RowScale, TakesLimitsInEitherOrder) {
    const RowScale scale(100.0, 0.0, 101);
    EXPECT_EQ(scale.RowOf(100.0), 100);
    EXPECT_EQ(scale.RowOf(0.0), 0);
    EXPECT_EQ(scale.RowsOf({20.0, 30.0}), (RowSpan{20, 30}));
}

TEST(RowScale, TakesAnyNumber) {
    const double most = std::numeric_limits<double>::max();
    for (const RowScale& scale : {RowScale(0.0, 100.0, 101), RowScale(5.0, 5.0, 101)}) {
        EXPECT_LT(scale.RowOf(most), 0);
        EXPECT_GT(scale.RowOf(-most), 100);
    }
    EXPECT_EQ(RowScale(5.0, 5.0, 101).RowOf(5.0), 100);
    EXPECT_TRUE(RowScale(0.0, 1.0, 10).RowsOf({}).IsEmpty());
}

}  // namespace
}  // namespace plotvane
