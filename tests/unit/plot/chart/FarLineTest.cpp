#include "plot/chart/FarLine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <tuple>

namespace plotvane {
namespace {

constexpr int kTop = -10;
constexpr int kBottom = 320;
constexpr int kRows = kBottom - kTop + 1;

// Where a line is in a row, as exactly as pixels can depend on it: the last half column that it has come to,
// and whether it is right there. Beyond its ends it is nowhere.
using Place = std::tuple<bool, std::int64_t, bool>;
Place PlaceIn(const PixelLine& line, int row) {
    const auto [upper, lower] =
        line.from.y < line.to.y ? std::pair{line.from, line.to} : std::pair{line.to, line.from};
    if (row < upper.y || row > lower.y) return {false, 0, false};
    const std::int64_t rows = lower.y - upper.y;
    const std::int64_t twice = 2 * (upper.x * rows + std::int64_t{lower.x - upper.x} * (row - upper.y));
    const std::int64_t half = twice / rows - (twice % rows < 0 ? 1 : 0);
    return {true, half, half * rows == twice};
}

void ExpectSamePlaces(const PixelLine& line) {
    SCOPED_TRACE(testing::Message() << line.from.x << ", " << line.from.y << " to " << line.to.x << ", "
                                    << line.to.y);
    const auto shortened = ShortenFarLine(line, kTop, kBottom);
    ASSERT_TRUE(shortened);
    for (int row = kTop; row <= kBottom; ++row) {
        if (PlaceIn(line, row) != PlaceIn(*shortened, row)) FAIL() << "in row " << row;
    }
    EXPECT_EQ(line.from.y < line.to.y, shortened->from.y < shortened->to.y);
    EXPECT_EQ((line.to.x > line.from.x) - (line.to.x < line.from.x),
              (shortened->to.x > shortened->from.x) - (shortened->to.x < shortened->from.x));
    EXPECT_LE(std::abs(shortened->to.y - shortened->from.y),
              std::max(4 * kRows + 5, 2 * kRows * std::abs(line.to.x - line.from.x)));
}

TEST(FarLine, ALineThatIsNotFarStaysAsItIs) {
    for (const PixelLine& line : {PixelLine{{606, 10}, {609, 300}},
                                  {{606, 10}, {609, 10}},
                                  {{606, 10}, {606, 300}},
                                  {{606, -1000}, {609, 900}},
                                  {{609, 900}, {606, -1000}}})
        EXPECT_EQ(ShortenFarLine(line, kTop, kBottom), line);
}

TEST(FarLine, IsFarFromTwiceTheRowsForEachColumnOn) {
    constexpr PixelPoint kFrom{606, -1000};
    constexpr int kMost = 2 * kRows * 3;  // in three columns
    const PixelLine near{kFrom, {609, kFrom.y + kMost}};
    EXPECT_EQ(ShortenFarLine(near, kTop, kBottom), near);
    const PixelLine far{kFrom, {609, kFrom.y + kMost + 1}};
    EXPECT_NE(ShortenFarLine(far, kTop, kBottom), far);
}

TEST(FarLine, AnEndInsideStaysAndTheLineGoesOnTheSameWay) {
    EXPECT_EQ(ShortenFarLine({{606, 150}, {609, -1'000'000}}, kTop, kBottom),
              (PixelLine{{606, 150}, {607, 150 - 2 * kRows}}));
    EXPECT_EQ(ShortenFarLine({{606, 1'000'000}, {609, 150}}, kTop, kBottom),
              (PixelLine{{608, 150 + 2 * kRows}, {609, 150}}));
    EXPECT_EQ(ShortenFarLine({{606, 1'000'000}, {606, 150}}, kTop, kBottom),
              (PixelLine{{606, kBottom + 1}, {606, 150}}));
}

TEST(FarLine, NothingIsLeftOfALineBesideTheRows) {
    EXPECT_EQ(ShortenFarLine({{606, -300}, {609, kTop - 1}}, kTop, kBottom), std::nullopt);
    EXPECT_EQ(ShortenFarLine({{606, kBottom + 1}, {609, 900'000}}, kTop, kBottom), std::nullopt);
    EXPECT_EQ(ShortenFarLine({{606, 900}, {609, 900}}, kTop, kBottom), std::nullopt);
}

TEST(FarLine, ALineRightThroughTheRowsCrossesTheColumnsInTheSameRows) {
    ExpectSamePlaces({{606, -9000}, {609, 9300}});       // comes between two columns in row 150
    ExpectSamePlaces({{606, -9000}, {609, 9301}});       // half a row below
    ExpectSamePlaces({{606, -9000}, {608, 9300}});       // comes to the middle of a column in row 150
    ExpectSamePlaces({{609, -9000}, {606, 9300}});       // the other way
    ExpectSamePlaces({{606, -1'000'000}, {609, 9300}});  // crosses nothing on its way through
    ExpectSamePlaces({{606, -1'000'000}, {606, 9300}});
}

TEST(FarLine, AnyFarLineCrossesTheColumnsInTheSameRows) {
    std::mt19937 random{9};
    const auto number = [&](int from, int to) {
        return std::uniform_int_distribution<int>(from, to)(random);
    };
    for (int i = 0; i < 600; ++i) {
        const int farthest = i % 2 == 0 ? 20'000 : 1'000'000;
        PixelLine line{{600, number(kTop, kBottom)}, {600 + number(-15, 15), number(kBottom + 1, farthest)}};
        if (i % 3 != 0) line.from.y = number(-farthest, kTop - 1);
        if (i % 5 == 0) line = {{line.from.x, kBottom - line.from.y}, {line.to.x, kBottom - line.to.y}};
        if (std::min(line.from.y, line.to.y) > kBottom || std::max(line.from.y, line.to.y) < kTop) continue;
        ExpectSamePlaces(line);
        if (HasFatalFailure()) return;
    }
}

}  // namespace
}  // namespace plotvane
