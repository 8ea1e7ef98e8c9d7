#include "plot/chart/ChartPixels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <random>
#include <vector>

namespace plotvane {
namespace {

// A picture of its own memory; each pixel holds its number until something is drawn.
struct Sheet {
    Sheet(int width, int height) : memory(static_cast<std::size_t>(width * height)) {
        std::iota(memory.begin(), memory.end(), 0u);
        view = {memory.data(), width, height};
    }
    std::vector<std::uint32_t> memory;
    ChartPixels view;
};

using Pixels = std::vector<std::uint32_t>;

TEST(ChartPixels, ScrollMovesTheInsideOfTheAreaOnly) {
    Sheet sheet(5, 3);
    sheet.view.ScrollLeft({1, 1, 4, 2}, 1);
    EXPECT_EQ(sheet.memory, (Pixels{0, 1, 2, 3, 4,  //
                                    5, 7, 8, 8, 9,  // 6 has left the area, 8 is laid bare
                                    10, 11, 12, 13, 14}));
}

TEST(ChartPixels, ScrollByTheWholeWidthOrMoreMovesNothing) {
    for (const int shift : {3, 4, 1000}) {
        Sheet sheet(5, 1);
        sheet.view.ScrollLeft({1, 0, 4, 1}, shift);
        EXPECT_EQ(sheet.memory, (Pixels{0, 1, 2, 3, 4})) << shift;
    }
}

TEST(ChartPixels, ScrollByNothingOrBackwardsMovesNothing) {
    for (const int shift : {0, -2}) {
        Sheet sheet(5, 1);
        sheet.view.ScrollLeft({0, 0, 5, 1}, shift);
        EXPECT_EQ(sheet.memory, (Pixels{0, 1, 2, 3, 4})) << shift;
    }
}

TEST(ChartPixels, ScrollIsClippedToThePicture) {
    Sheet sheet(3, 2);
    sheet.view.ScrollLeft({-4, -4, 40, 40}, 1);
    EXPECT_EQ(sheet.memory, (Pixels{1, 2, 2, 4, 5, 5}));

    Sheet untouched(3, 1);
    untouched.view.ScrollLeft({2, 0, 1, 1}, 1);
    untouched.view.ScrollLeft({0, 5, 3, 9}, 1);
    EXPECT_EQ(untouched.memory, (Pixels{0, 1, 2}));
}

// Four columns of a wider picture.
TEST(ChartPixels, APartOfAPictureLeavesTheRestAlone) {
    Sheet sheet(6, 3);
    const ChartPixels part{sheet.memory.data() + 1, 4, 3, 6};
    part.ScrollLeft({0, 0, 9, 2}, 1);
    part.DotRow({0, 0, 9, 3}, 2, 0xFFFFFF);
    EXPECT_EQ(sheet.memory, (Pixels{0, 2, 3, 4, 4, 5,     //
                                    6, 8, 9, 10, 10, 11,  //
                                    12, 0xFFFFFF, 14, 15, 16, 17}));
}

TEST(ChartPixels, SlideMovesWhatIsAroundTheArea) {
    Sheet sheet(6, 3);
    const ChartPixels part{sheet.memory.data(), 5, 3, 6};
    const ChartPixels slid = part.SlideLeft({1, 1, 4, 2}, 1);
    EXPECT_EQ(slid.pixels, sheet.memory.data() + 1);
    EXPECT_EQ(sheet.memory, (Pixels{0, 0, 1, 2, 3, 4,    //
                                    6, 6, 8, 9, 10, 10,  // 7 has left the area, 10 is laid bare
                                    12, 12, 13, 14, 15, 16}));
}

// All but the strip that is laid bare, which the caller draws on.
TEST(ChartPixels, SlideShowsWhatScrollDoes) {
    std::mt19937 random{3};
    const auto below = [&](int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); };
    for (int round = 0; round < 5000; ++round) {
        constexpr int kWidth = 12, kHeight = 5, kMore = 8;
        Sheet wide(kWidth + kMore, kHeight);
        const ChartPixels part{wide.memory.data(), kWidth, kHeight, kWidth + kMore};
        Sheet plain(kWidth, kHeight);
        for (int y = 0; y < kHeight; ++y) std::copy_n(part.Row(y), kWidth, plain.view.Row(y));

        const int left = below(kWidth + 2) - 2;
        const int top = below(kHeight + 2) - 2;
        const PixelRect area{left, top, left + below(kWidth + 3), top + below(kHeight + 3)};
        const int shift = 1 + below(kMore);
        plain.view.ScrollLeft(area, shift);
        const ChartPixels slid = part.SlideLeft(area, shift);
        const int bareFrom = std::min(area.right, kWidth) - shift;
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                const bool isInside = x >= area.left && x < area.right && y >= area.top && y < area.bottom;
                if (isInside && x >= bareFrom) continue;
                ASSERT_EQ(slid.Row(y)[x], plain.view.Row(y)[x]) << round << ": " << x << ", " << y;
            }
        }
    }
}

TEST(ChartPixels, RowOfDotsStopsBeforeTheRightEdge) {
    Sheet sheet(10, 2);
    sheet.view.DotRow({1, 0, 9, 2}, 1, 0x332211);  // red 0x11, green 0x22, blue 0x33
    EXPECT_EQ(sheet.memory, (Pixels{0,  1,        2,  3,  4,  5,        6,  7,  8,  9,  //
                                    10, 0x112233, 12, 13, 14, 0x112233, 16, 17, 18, 19}));
}

TEST(ChartPixels, ColumnOfDotsStopsBeforeTheBottomEdge) {
    Sheet sheet(1, 6);
    sheet.view.DotColumn({0, 1, 1, 6}, 0, 0xFF000001);  // the high byte is no part of the colour
    EXPECT_EQ(sheet.memory, (Pixels{0, 0x010000, 2, 3, 4, 0x010000}));
}

TEST(ChartPixels, DotsAreClippedToThePicture) {
    Sheet sheet(3, 2);
    sheet.view.DotRow({-4, 0, 90, 2}, 0, 0xFFFFFF);
    sheet.view.DotRow({0, 0, 3, 2}, 2, 0xFFFFFF);
    sheet.view.DotRow({0, 0, 3, 2}, -1, 0xFFFFFF);
    sheet.view.DotColumn({0, -3, 3, 90}, 2, 0xFFFFFF);
    sheet.view.DotColumn({0, 0, 3, 2}, 3, 0xFFFFFF);
    EXPECT_EQ(sheet.memory, (Pixels{0xFFFFFF, 1, 2, 3, 4, 0xFFFFFF}));
}

TEST(ChartPixels, NothingIsDrawnAboveOrBelowThePicture) {
    Sheet sheet(3, 4);
    const Pixels before = sheet.memory;
    const ChartPixels inside{sheet.memory.data() + 3, 3, 2};  // the two rows in the middle
    for (const int row : {-1, 2}) inside.DotRow({0, 0, 3, 2}, row, 0xFFFFFF);
    inside.DotColumn({0, -1, 3, 0}, 1, 0xFFFFFF);
    inside.DotColumn({0, 2, 3, 3}, 1, 0xFFFFFF);
    EXPECT_EQ(sheet.memory, before);

    inside.ScrollLeft({0, -1, 3, 3}, 1);
    EXPECT_EQ(sheet.memory, (Pixels{0, 1, 2, 4, 5, 5, 7, 8, 8, 9, 10, 11}));
}

TEST(ChartPixels, PictureWithoutPixelsIsLeftAlone) {
    const ChartPixels none;
    none.ScrollLeft({0, 0, 5, 5}, 1);
    none.DotRow({0, 0, 5, 5}, 0, 0xFFFFFF);
}

}  // namespace
}  // namespace plotvane
