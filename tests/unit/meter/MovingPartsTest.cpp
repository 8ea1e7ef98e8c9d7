#include "meter/MovingParts.h"

#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <random>
#include <string>
#include <vector>

namespace plotvane {

std::ostream& operator<<(std::ostream& out, const DialRect& rect) {
    return out << '(' << rect.left << ", " << rect.top << ")-(" << rect.right << ", " << rect.bottom << ')';
}

namespace {

using Rects = std::vector<DialRect>;
using Drawn = std::array<bool, kMovingParts>;

TEST(DialRect, TheUnionIsTheSmallestThatHoldsBoth) {
    EXPECT_EQ(Union({1, 2, 3, 4}, {2, 0, 9, 3}), (DialRect{1, 0, 9, 4}));
    EXPECT_EQ(Union({1, 2, 3, 4}, {}), (DialRect{1, 2, 3, 4}));
    EXPECT_EQ(Union({5, 5, 5, 9}, {1, 2, 3, 4}), (DialRect{1, 2, 3, 4}));
}

TEST(DialRect, OverlapsWhatItSharesAPixelWith) {
    const DialRect rect{10, 10, 20, 20};
    EXPECT_TRUE(Overlap(rect, {19, 19, 30, 30}));
    EXPECT_TRUE(Overlap(rect, {12, 12, 13, 13}));
    EXPECT_TRUE(Overlap({12, 12, 13, 13}, rect));
    EXPECT_FALSE(Overlap(rect, {20, 10, 30, 20}));  // beside it
    EXPECT_FALSE(Overlap(rect, {10, 0, 20, 10}));
    EXPECT_FALSE(Overlap(rect, {12, 12, 12, 18}));  // empty
}

TEST(DialTriangle, HasBoundsThatHoldItsCorners) {
    EXPECT_EQ(BoundsOf(DialTriangle{{{5, 9}, {-2, 3}, {7, 4}}}), (DialRect{-2, 3, 8, 10}));
}

// The client rectangle of a window of 200 x 200.
const DialGeometry kDial{{0, 0, 184, 161}};

MovingParts PartsOf(const Gauge& gauge) {
    MovingParts parts;
    PlaceParts(parts, kDial, kDial.TextPlaces(15), gauge, "peak:");
    return parts;
}

TEST(MovingParts, AreMarkersNeedleValueAndPeakInThisOrder) {
    Gauge gauge;
    gauge.SetValueDecimals(1);
    gauge.SetUnits("V");
    gauge.SetNeedleColor(MakeColour(200, 100, 40));
    for (const double value : {25.0, 75.0, 50.0}) gauge.SetValue(value);
    const auto [minMarker, maxMarker, needle, value, peak] = PartsOf(gauge);

    const auto angleOf = [](double shown) { return AngleOfValue(shown, 0, 100); };
    using Triangles = std::vector<FilledTriangle>;
    EXPECT_EQ(minMarker.triangles, (Triangles{{kDial.MinMarker(angleOf(25)), MakeColour(255, 255, 0)}}));
    EXPECT_EQ(maxMarker.triangles, (Triangles{{kDial.MaxMarker(angleOf(75)), MakeColour(255, 255, 0)}}));
    const DialNeedle halves = kDial.Needle(angleOf(50));
    EXPECT_EQ(needle.triangles,
              (Triangles{{halves.lit, MakeColour(200, 100, 40)}, {halves.shaded, MakeColour(130, 65, 26)}}));
    EXPECT_EQ(value.text, "50.0 V");
    EXPECT_EQ(value.textPlace, kDial.TextPlaces(15).value);
    EXPECT_EQ(peak.text, "peak: 75.0 V");
    EXPECT_EQ(peak.textPlace, kDial.TextPlaces(15).peak);
}

TEST(MovingParts, TrianglesHaveTheirBounds) {
    Gauge gauge;
    gauge.SetValue(50);
    const MovingParts parts = PartsOf(gauge);
    EXPECT_EQ(parts[0].bounds, BoundsOf(kDial.MinMarker(DegreesToRadians(90))));
    // The needle points up from (92, 80): the tip 53 pixels above, the back 13 below.
    EXPECT_EQ(parts[2].bounds, (DialRect{90, 27, 95, 94}));
}

TEST(MovingParts, WhatIsSwitchedOffHasNothingToDraw) {
    Gauge gauge;
    MovingParts parts = PartsOf(gauge);
    gauge.ToggleMinMarker();
    gauge.ToggleMaxMarker();
    gauge.TogglePeak();
    PlaceParts(parts, kDial, kDial.TextPlaces(15), gauge, "peak:");
    for (const std::size_t hidden : {0U, 1U, 4U}) {
        EXPECT_TRUE(parts[hidden].triangles.empty()) << hidden;
        EXPECT_TRUE(parts[hidden].text.empty()) << hidden;
        EXPECT_TRUE(parts[hidden].bounds.IsEmpty()) << hidden;
    }
}

// A part that fills its bounds; `look` tells it from others at the same place.
MovingPart PartAt(const DialRect& bounds, const std::string& look = "x") {
    MovingPart part;
    part.text = look;
    part.bounds = bounds;
    return part;
}

RedrawPlan PlanFor(const MovingParts& before, const MovingParts& after) {
    RedrawPlan plan;
    plan.TakeDifference(before, after);
    return plan;
}

// Five parts beside each other.
MovingParts Row() {
    MovingParts parts;
    for (int i = 0; i < 5; ++i) parts[static_cast<std::size_t>(i)] = PartAt({20 * i, 0, 20 * i + 10, 10});
    return parts;
}

TEST(RedrawPlan, TakesNothingIfNothingMoves) {
    const RedrawPlan plan = PlanFor(Row(), Row());
    EXPECT_EQ(plan.changed, Rects{});
    EXPECT_EQ(plan.isDrawn, Drawn{});
}

TEST(RedrawPlan, TakesWhatHoldsTheOldPlaceAndTheNew) {
    MovingParts after = Row();
    after[2] = PartAt({43, 2, 53, 12}, "y");
    after[4] = PartAt({80, 0, 88, 10}, "y");
    const RedrawPlan plan = PlanFor(Row(), after);
    EXPECT_EQ(plan.changed, (Rects{{40, 0, 53, 12}, {80, 0, 90, 10}}));
    EXPECT_EQ(plan.isDrawn, (Drawn{false, false, true, false, true}));
}

TEST(RedrawPlan, TakesThePlaceOfWhatIsHiddenAndOfWhatAppears) {
    MovingParts hidden = Row();
    hidden[1].Hide();
    EXPECT_EQ(PlanFor(Row(), hidden).changed, (Rects{{20, 0, 30, 10}}));
    EXPECT_EQ(PlanFor(Row(), hidden).isDrawn, (Drawn{false, true, false, false, false}));
    EXPECT_EQ(PlanFor(hidden, Row()).changed, (Rects{{20, 0, 30, 10}}));
    EXPECT_EQ(PlanFor(hidden, Row()).isDrawn, (Drawn{false, true, false, false, false}));
}

TEST(RedrawPlan, MakesAPartThatStaysAgainIfItMeetsAnotherThatIsMade) {
    MovingParts before = Row();
    before[1].bounds = {8, 0, 30, 10};   // over the first part's edge
    before[2].bounds = {25, 0, 50, 10};  // over the second
    MovingParts after = before;
    after[0].text = "y";
    RedrawPlan plan = PlanFor(before, after);
    EXPECT_EQ(plan.changed, (Rects{{0, 0, 10, 10}}));
    EXPECT_EQ(plan.restored, (Rects{{0, 0, 10, 10}, {8, 0, 30, 10}, {25, 0, 50, 10}}));
    EXPECT_EQ(plan.isDrawn, (Drawn{true, true, true, false, false}));

    after = before;
    after[2].text = "y";  // the same from the other end
    plan = PlanFor(before, after);
    EXPECT_EQ(plan.changed, (Rects{{25, 0, 50, 10}}));
    EXPECT_EQ(plan.restored, (Rects{{25, 0, 50, 10}, {8, 0, 30, 10}, {0, 0, 10, 10}}));
    EXPECT_EQ(plan.isDrawn, (Drawn{true, true, true, false, false}));
}

TEST(RedrawPlan, TakesAllOfAWholePicture) {
    RedrawPlan plan = PlanFor(Row(), Row());
    plan.TakeAll({0, 0, 184, 161});
    EXPECT_EQ(plan.changed, (Rects{{0, 0, 184, 161}}));
    EXPECT_EQ(plan.isDrawn, (Drawn{true, true, true, true, true}));
}

// Each pixel holds the looks of everything that was drawn on it since the dial was copied there.
class Sheet {
public:
    void Follow(const RedrawPlan& plan, const MovingParts& parts) {
        for (const DialRect& rect : plan.restored)
            ForEachPixel(rect, [](std::string& pixel) { pixel.clear(); });
        for (std::size_t i = 0; i < kMovingParts; ++i) {
            if (!plan.isDrawn[i]) continue;
            ForEachPixel(parts[i].bounds, [&](std::string& pixel) { pixel += parts[i].text + ' '; });
        }
    }

    // What has reached the screen.
    void CopyFrom(const Sheet& picture, const std::vector<DialRect>& rects) {
        for (const DialRect& rect : rects) {
            for (int y = rect.top; y < rect.bottom; ++y)
                for (int x = rect.left; x < rect.right; ++x) At(x, y) = picture.m_pixels[Index(x, y)];
        }
    }

    bool operator==(const Sheet&) const = default;

    static constexpr int kSide = 16;

private:
    static std::size_t Index(int x, int y) { return static_cast<std::size_t>(y * kSide + x); }
    std::string& At(int x, int y) { return m_pixels.at(Index(x, y)); }
    void ForEachPixel(const DialRect& rect, const std::function<void(std::string&)>& change) {
        for (int y = rect.top; y < rect.bottom; ++y)
            for (int x = rect.left; x < rect.right; ++x) change(At(x, y));
    }

    std::vector<std::string> m_pixels = std::vector<std::string>(kSide * kSide);
};

class Chance {
public:
    int Below(int end) { return std::uniform_int_distribution(0, end - 1)(m_random); }

    DialRect Place() {
        const int left = Below(Sheet::kSide);
        const int top = Below(Sheet::kSide);
        return {left, top, left + 1 + Below(Sheet::kSide - left), top + 1 + Below(Sheet::kSide - top)};
    }

private:
    std::mt19937 m_random{20};
};

TEST(RedrawPlan, EndsWithThePictureOfAWholePaintWhateverMoves) {
    Chance chance;
    MovingParts shown;
    Sheet kept;
    Sheet screen;
    for (int round = 0; round < 5'000; ++round) {
        MovingParts next = shown;
        for (std::size_t i = 0; i < kMovingParts; ++i) {
            const int what = chance.Below(4);
            if (what == 0) next[i].Hide();
            if (what == 1) next[i] = PartAt(chance.Place(), std::to_string(round) + "of" + std::to_string(i));
        }
        const RedrawPlan plan = PlanFor(shown, next);
        kept.Follow(plan, next);
        screen.CopyFrom(kept, plan.changed);
        RedrawPlan all;
        all.TakeAll({0, 0, Sheet::kSide, Sheet::kSide});
        Sheet whole;
        whole.Follow(all, next);
        ASSERT_EQ(kept, whole) << round;
        ASSERT_EQ(screen, whole) << round;
        shown = next;
    }
}

}  // namespace
}  // namespace plotvane
