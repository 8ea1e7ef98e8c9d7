#include "meter/DialGeometry.h"

#include <gtest/gtest.h>

#include <limits>
#include <ostream>

namespace plotvane {

std::ostream& operator<<(std::ostream& out, const DialPoint& point) {
    return out << '(' << point.x << ", " << point.y << ')';
}
std::ostream& operator<<(std::ostream& out, const DialLine& line) {
    return out << line.from << '-' << line.to;
}

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

// The client rectangle of a window of 200 x 200 with a sizing frame on a classic desktop.
const DialGeometry kDial{{0, 0, 184, 161}};

double AngleOnHundred(double value) {
    return AngleOfValue(value, 0, 100);
}

TEST(RoundToPixel, TakesHalvesAwayFromZero) {
    EXPECT_EQ(RoundToPixel(0.0), 0);
    EXPECT_EQ(RoundToPixel(0.49), 0);
    EXPECT_EQ(RoundToPixel(0.5), 1);
    EXPECT_EQ(RoundToPixel(1.5), 2);
    EXPECT_EQ(RoundToPixel(-0.49), 0);
    EXPECT_EQ(RoundToPixel(-0.5), -1);
    EXPECT_EQ(RoundToPixel(-1.5), -2);
    EXPECT_EQ(RoundToPixel(-1.49), -1);
}

TEST(AngleOfValue, RunsClockwiseFromTheMinimumToTheMaximum) {
    EXPECT_DOUBLE_EQ(AngleOnHundred(0), DegreesToRadians(255));
    EXPECT_DOUBLE_EQ(AngleOnHundred(25), DegreesToRadians(172.5));
    EXPECT_DOUBLE_EQ(AngleOnHundred(50), DegreesToRadians(90));
    EXPECT_NEAR(AngleOnHundred(75), DegreesToRadians(7.5), 1e-12);
    EXPECT_DOUBLE_EQ(AngleOnHundred(100), DegreesToRadians(-75));
}

TEST(AngleOfValue, PinsToTheEndsWhatLiesBeyondThem) {
    const double start = DegreesToRadians(255);
    const double end = DegreesToRadians(-75);
    EXPECT_EQ(AngleOnHundred(-0.001), start);
    EXPECT_EQ(AngleOnHundred(-1e300), start);
    EXPECT_EQ(AngleOnHundred(-kInfinity), start);
    EXPECT_EQ(AngleOnHundred(100.001), end);
    EXPECT_EQ(AngleOnHundred(1e300), end);
    EXPECT_EQ(AngleOnHundred(kInfinity), end);
    EXPECT_EQ(AngleOnHundred(kNaN), end);
}

TEST(AngleOfValue, HasNoSpecialRuleForAnEmptyRange) {
    EXPECT_EQ(AngleOfValue(7, 7, 7), DegreesToRadians(-75));  // 0 / 0
    EXPECT_EQ(AngleOfValue(8, 7, 7), DegreesToRadians(-75));
    EXPECT_EQ(AngleOfValue(6, 7, 7), DegreesToRadians(255));
}

TEST(AngleOfValue, GoesTheSameWayRoundOnAReversedScale) {
    EXPECT_DOUBLE_EQ(AngleOfValue(100, 100, 0), DegreesToRadians(255));
    EXPECT_DOUBLE_EQ(AngleOfValue(25, 100, 0), AngleOnHundred(75));
}

TEST(DialGeometry, TakesItsSizeFromTheHeightAlone) {
    EXPECT_EQ(kDial.Centre(), (DialPoint{92, 80}));
    EXPECT_EQ(kDial.Radius(), 53);
    EXPECT_EQ(kDial.InnerRadius(), 5);
    EXPECT_EQ(kDial.FontHeight(), 13);

    const DialGeometry wide{{0, 0, 1001, 161}};
    EXPECT_EQ(wide.Centre(), (DialPoint{500, 80}));
    EXPECT_EQ(wide.Radius(), 53);
    EXPECT_EQ(wide.InnerRadius(), 5);
    EXPECT_EQ(wide.FontHeight(), 13);
}

TEST(DialGeometry, HasNoDialInAWindowOfAFewPixels) {
    EXPECT_FALSE((DialGeometry{{0, 0, 0, 0}}).HasDial());
    EXPECT_FALSE((DialGeometry{{0, 0, 184, 5}}).HasDial());
    EXPECT_TRUE((DialGeometry{{0, 0, 184, 6}}).HasDial());
    EXPECT_EQ((DialGeometry{{0, 0, 0, 0}}).FontHeight(), 0);
}

TEST(DialGeometry, LaysTheOuterArcOfTheFaceFromTheMaximumOverTheTop) {
    const FacePoints face = kDial.Face();
    ASSERT_EQ(face.size(), 134U);
    EXPECT_EQ(face[0], (DialPoint{106, 131}));  // -75 degrees
    EXPECT_EQ(face[15], (DialPoint{145, 80}));  // 0
    EXPECT_EQ(face[33], (DialPoint{92, 27}));   // 90
    EXPECT_EQ(face[51], (DialPoint{39, 80}));   // 180
    EXPECT_EQ(face[66], (DialPoint{78, 131}));  // 255
}

TEST(DialGeometry, LaysTheInnerArcOfTheFaceTheOtherWay) {
    const FacePoints face = kDial.Face();
    EXPECT_EQ(face[67], (DialPoint{91, 85}));   // 255 degrees
    EXPECT_EQ(face[82], (DialPoint{87, 80}));   // 180
    EXPECT_EQ(face[100], (DialPoint{92, 75}));  // 90
    EXPECT_EQ(face[118], (DialPoint{97, 80}));  // 0
    EXPECT_EQ(face[133], (DialPoint{93, 85}));  // -75
}

TEST(DialGeometry, SinksTheFaceByOnePixel) {
    const FacePoints face = kDial.Face();
    const FacePoints bevel = BevelOf(face);
    EXPECT_EQ(bevel[0], (DialPoint{107, 130}));  // up, and right
    EXPECT_EQ(bevel[1], (DialPoint{face[1].x, face[1].y - 1}));
    EXPECT_EQ(bevel[33], (DialPoint{92, 26}));
    EXPECT_EQ(bevel[66], (DialPoint{78, 130}));
    EXPECT_EQ(bevel[67], (DialPoint{90, 86}));  // down, and left
    EXPECT_EQ(bevel[100], (DialPoint{92, 76}));
    EXPECT_EQ(bevel[132], (DialPoint{face[132].x, face[132].y + 1}));
    EXPECT_EQ(bevel[133], (DialPoint{94, 86}));  // down, and right
}

TEST(DialGeometry, HasATickEvery15DegreesButNotAtTheEnds) {
    const auto ticks = kDial.Ticks();
    ASSERT_EQ(ticks.size(), 21U);
    const DialLine expected[] = {
        // From the top to the maximum ...
        {{92, 27}, {92, 32}},      // 90 degrees
        {{106, 29}, {104, 33}},    // 75
        {{119, 34}, {116, 38}},    // 60
        {{129, 43}, {126, 46}},    // 45
        {{138, 54}, {134, 56}},    // 30
        {{143, 66}, {139, 68}},    // 15
        {{145, 80}, {140, 80}},    // 0
        {{143, 94}, {139, 92}},    // -15
        {{138, 107}, {134, 104}},  // -30
        {{129, 117}, {126, 114}},  // -45
        {{119, 126}, {116, 122}},  // -60
        // ... and to the minimum.
        {{78, 29}, {80, 33}},    // 105
        {{66, 34}, {68, 38}},    // 120
        {{55, 43}, {58, 46}},    // 135
        {{46, 54}, {50, 56}},    // 150
        {{41, 66}, {45, 68}},    // 165
        {{39, 80}, {44, 80}},    // 180
        {{41, 94}, {45, 92}},    // 195
        {{46, 107}, {50, 104}},  // 210
        {{55, 117}, {58, 114}},  // 225
        {{65, 126}, {68, 122}},  // 240
    };
    for (std::size_t i = 0; i < ticks.size(); ++i) EXPECT_EQ(ticks[i], expected[i]) << i;
}

TEST(DialGeometry, LightsTheLeftHalfOfANeedleThatStandsUpright) {
    const DialNeedle needle = kDial.Needle(AngleOnHundred(50));
    EXPECT_EQ(needle.lit, (DialTriangle{{{92, 93}, {90, 90}, {92, 27}}}));
    EXPECT_EQ(needle.shaded, (DialTriangle{{{92, 93}, {94, 90}, {92, 27}}}));
}

TEST(DialGeometry, LightsTheUpperHalfOnBothSides) {
    // At a quarter of the scale the needle lies left, at three quarters right.
    const DialNeedle left = kDial.Needle(AngleOnHundred(25));
    EXPECT_EQ(left.lit, (DialTriangle{{{105, 82}, {102, 80}, {39, 73}}}));
    EXPECT_EQ(left.shaded, (DialTriangle{{{105, 82}, {102, 83}, {39, 73}}}));

    const DialNeedle right = kDial.Needle(AngleOnHundred(75));
    EXPECT_EQ(right.lit, (DialTriangle{{{79, 82}, {82, 80}, {145, 73}}}));
    EXPECT_EQ(right.shaded, (DialTriangle{{{79, 82}, {82, 83}, {145, 73}}}));
}

TEST(DialGeometry, PointsTheNeedleToTheEndsOfTheScale) {
    const DialNeedle lowest = kDial.Needle(AngleOnHundred(0));
    EXPECT_EQ(lowest.lit, (DialTriangle{{{95, 67}, {93, 70}, {78, 131}}}));
    EXPECT_EQ(lowest.shaded, (DialTriangle{{{95, 67}, {96, 71}, {78, 131}}}));

    const DialNeedle highest = kDial.Needle(AngleOnHundred(100));
    EXPECT_EQ(highest.lit, (DialTriangle{{{89, 67}, {91, 70}, {106, 131}}}));
    EXPECT_EQ(highest.shaded, (DialTriangle{{{89, 67}, {88, 71}, {106, 131}}}));
}

TEST(DialGeometry, ChangesTheLitHalfJustBehindTheTopAndAt270Degrees) {
    const auto litIsBackSideATip = [](double degrees) {
        const double angle = DegreesToRadians(degrees);
        const DialPoint sideA = kDial.At(10, angle + DegreesToRadians(170));
        return kDial.Needle(angle).lit[1] == sideA;
    };
    EXPECT_TRUE(litIsBackSideATip(89.9));
    EXPECT_TRUE(litIsBackSideATip(90));
    EXPECT_FALSE(litIsBackSideATip(90.1));
    EXPECT_FALSE(litIsBackSideATip(270));
    EXPECT_TRUE(litIsBackSideATip(270.1));
}

TEST(DialGeometry, LeansTheMarkersTowardsEachOther) {
    const double top = AngleOnHundred(50);
    EXPECT_EQ(kDial.MinMarker(top), (DialTriangle{{{92, 47}, {92, 27}, {95, 47}}}));
    EXPECT_EQ(kDial.MaxMarker(top), (DialTriangle{{{92, 47}, {92, 27}, {89, 47}}}));
}

TEST(DialGeometry, PutsTheRestingMarkersAtTheFarEnds) {
    // As long as no value has come, the lowest stands at the maximum and the highest at the minimum.
    EXPECT_EQ(kDial.MinMarker(AngleOnHundred(100)), (DialTriangle{{{101, 112}, {106, 131}, {98, 112}}}));
    EXPECT_EQ(kDial.MaxMarker(AngleOnHundred(0)), (DialTriangle{{{83, 112}, {78, 131}, {86, 112}}}));
}

TEST(DialGeometry, TurnsTheMarkerOfASmallDialRound) {
    // Radius 10: the inner side of the wedge lies 10 pixels beyond the centre.
    const DialGeometry small{{0, 0, 30, 30}};
    ASSERT_EQ(small.Radius(), 10);
    EXPECT_EQ(small.MinMarker(DegreesToRadians(90)), (DialTriangle{{{15, 25}, {15, 5}, {14, 25}}}));
}

TEST(DialGeometry, PlacesTheTextsByTheHeightOfTheFont) {
    const DialTextPlaces places = kDial.TextPlaces(13);
    EXPECT_EQ(places.value, (DialPoint{92, 21}));
    EXPECT_EQ(places.peak, (DialPoint{92, 157}));
    EXPECT_EQ(places.minLabel, (DialPoint{78, 146}));
    EXPECT_EQ(places.maxLabel, (DialPoint{106, 146}));

    // Half a text height and 1.9 text heights, both cut to whole pixels.
    const DialTextPlaces larger = kDial.TextPlaces(16);
    EXPECT_EQ(larger.value, (DialPoint{92, 19}));
    EXPECT_EQ(larger.peak, (DialPoint{92, 163}));
    EXPECT_EQ(larger.minLabel, (DialPoint{78, 149}));
}

// On a large dial a degree is several pixels.
TEST(DialGeometry, HoldsItsAnglesOnALargeDial) {
    const DialGeometry large{{0, 0, 1200, 1200}};
    ASSERT_EQ(large.Radius(), 400);
    ASSERT_EQ(large.InnerRadius(), 40);
    const double top = DegreesToRadians(90);
    const DialNeedle needle = large.Needle(top);
    EXPECT_EQ(needle.lit, (DialTriangle{{{600, 700}, {586, 679}, {600, 200}}}));  // sides 10 degrees off
    EXPECT_EQ(needle.shaded, (DialTriangle{{{600, 700}, {614, 679}, {600, 200}}}));
    EXPECT_EQ(large.MinMarker(top), (DialTriangle{{{600, 220}, {600, 200}, {633, 221}}}));  // 5 degrees
    EXPECT_EQ(large.MaxMarker(top), (DialTriangle{{{600, 220}, {600, 200}, {567, 221}}}));
    EXPECT_EQ(large.Ticks()[3], (DialLine{{883, 317}, {857, 343}}));  // 45 degrees, from 400 to 364
}

TEST(DialGeometry, CountsFromTheCornerOfTheClientWhereItsRulesSaySo) {
    const DialGeometry shifted{{10, 20, 194, 181}};
    EXPECT_EQ(shifted.Centre(), (DialPoint{102, 80}));  // half the sum across, half the height down
    EXPECT_EQ(shifted.Radius(), 53);
    EXPECT_EQ(shifted.FontHeight(), 15);  // (53 - 80 + 181) / 10
    EXPECT_EQ(shifted.TextPlaces(13).value, (DialPoint{102, 21}));
}

TEST(DialGeometry, KeepsAWideDialInTheMiddle) {
    const DialGeometry wide{{0, 0, 600, 161}};
    EXPECT_EQ(wide.Face()[0], (DialPoint{314, 131}));
    EXPECT_EQ(wide.Face()[66], (DialPoint{286, 131}));
    EXPECT_EQ(wide.TextPlaces(13).value, (DialPoint{300, 21}));
    EXPECT_EQ(wide.TextPlaces(13).minLabel, (DialPoint{286, 146}));
}

TEST(DialGeometry, StaysInsideAnEmptyRectangle) {
    const DialGeometry nothing{{0, 0, 0, 0}};
    for (const DialPoint& point : nothing.Face()) EXPECT_EQ(point, (DialPoint{0, 0}));
    for (const DialLine& tick : nothing.Ticks()) EXPECT_EQ(tick, (DialLine{{0, 0}, {0, 0}}));
}

}  // namespace
}  // namespace plotvane
