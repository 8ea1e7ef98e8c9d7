#include "meter/GaugePainter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <string>

#include "tests/support/Canvas.h"

namespace plotvane {
namespace {

using test::Canvas;
using test::kUntouched;

constexpr COLORREF kBack = RGB(0, 0, 90);
constexpr COLORREF kFace = RGB(20, 60, 20);
constexpr COLORREF kTicks = RGB(250, 240, 10);
constexpr COLORREF kNeedle = RGB(200, 100, 40);
constexpr COLORREF kShade = RGB(130, 65, 26);  // 65 percent of each part
constexpr COLORREF kMarker = RGB(255, 255, 0);
constexpr COLORREF kText = RGB(200, 200, 200);

// Centre (300, 240), radius 160, inner radius 16, range 0..100.
constexpr CRect kClient{0, 0, 600, 480};

Gauge ColouredGauge() {
    Gauge gauge;
    gauge.SetBackColor(kBack);
    gauge.SetFaceColor(kFace);
    gauge.SetTicksColor(kTicks);
    gauge.SetNeedleColor(kNeedle);
    return gauge;
}

Gauge NeedleAlone() {
    Gauge gauge = ColouredGauge();
    gauge.ToggleMinMarker();
    gauge.ToggleMaxMarker();
    gauge.TogglePeak();
    return gauge;
}

class GaugePainterTest : public testing::Test {
protected:
    void Paint(const Gauge& gauge) { m_painter.Paint(m_canvas.Dc(), kClient, gauge); }

    int CountIn(const CRect& rect, COLORREF colour) const {
        int count = 0;
        for (LONG y = rect.top; y < rect.bottom; ++y)
            for (LONG x = rect.left; x < rect.right; ++x) count += m_canvas.At(x, y) == colour;
        return count;
    }

    // The smallest rectangle around the pixels of `rect` that are not background.
    CRect InkIn(const CRect& rect) const {
        CRect ink{rect.right, rect.bottom, rect.left, rect.top};
        for (LONG y = rect.top; y < rect.bottom; ++y) {
            for (LONG x = rect.left; x < rect.right; ++x) {
                if (m_canvas.At(x, y) == kBack) continue;
                ink = CRect{std::min(ink.left, x), std::min(ink.top, y), std::max(ink.right, x + 1),
                            std::max(ink.bottom, y + 1)};
            }
        }
        return ink;
    }

    Canvas m_canvas{kClient.Width(), kClient.Height()};
    GaugePainter m_painter{"peak:"};
};

constexpr CRect kAboveDial{10, 10, 590, 78};
constexpr CRect kPeakLine{10, 446, 590, 478};

struct NeedlePlace {
    double value;
    POINT tip;
    POINT inLitHalf;
    POINT inShadedHalf;
};

void PrintTo(const NeedlePlace& place, std::ostream* out) {
    *out << place.value;
}

class NeedlePlaces : public GaugePainterTest, public testing::WithParamInterface<NeedlePlace> {};

TEST_P(NeedlePlaces, LightsOneHalfAndShadesTheOther) {
    const NeedlePlace& place = GetParam();
    Gauge gauge = NeedleAlone();
    gauge.SetValue(place.value);
    Paint(gauge);
    EXPECT_EQ(m_canvas.At(place.inLitHalf.x, place.inLitHalf.y), kNeedle);
    EXPECT_EQ(m_canvas.At(place.inShadedHalf.x, place.inShadedHalf.y), kShade);
    // Near the tip the halves are narrower than a pixel; the shaded one is drawn last.
    const LONG x = place.tip.x + (300 - place.tip.x) / 10;
    const LONG y = place.tip.y + (240 - place.tip.y) / 10;
    EXPECT_GT(CountIn({x - 1, y - 1, x + 2, y + 2}, kShade), 0);
}

// The points are the centres of gravity of the two triangles. The light comes from above on either side.
INSTANTIATE_TEST_SUITE_P(GaugePainter, NeedlePlaces,
                         testing::Values(NeedlePlace{10, {181, 347}, {277, 258}, {279, 261}},
                                         NeedlePlace{25, {141, 219}, {271, 234}, {271, 238}},
                                         NeedlePlace{49, {291, 80}, {300, 210}, {296, 211}},
                                         NeedlePlace{50, {300, 80}, {298, 211}, {302, 211}},
                                         NeedlePlace{51, {309, 80}, {300, 210}, {304, 211}},
                                         NeedlePlace{75, {459, 219}, {329, 234}, {329, 238}}));

struct PinnedNeedle {
    const char* name;
    double minimum;
    double maximum;
    double value;
    POINT inLitHalf;
    POINT inOtherHalf;  // beyond the end of the scale, where there is no face
};

void PrintTo(const PinnedNeedle& needle, std::ostream* out) {
    *out << needle.name;
}

class PinnedNeedles : public GaugePainterTest, public testing::WithParamInterface<PinnedNeedle> {};

TEST_P(PinnedNeedles, ShowTheHalfThatLiesOnTheFace) {
    const PinnedNeedle& needle = GetParam();
    Gauge gauge = NeedleAlone();
    gauge.SetRange(needle.minimum, needle.maximum);
    gauge.SetValue(needle.value);
    Paint(gauge);
    EXPECT_EQ(m_canvas.At(needle.inLitHalf.x, needle.inLitHalf.y), kNeedle);
    EXPECT_EQ(m_canvas.At(needle.inOtherHalf.x, needle.inOtherHalf.y), kBack);
}

constexpr POINT kLitAtStart{291, 268};
constexpr POINT kOtherAtStart{297, 270};
constexpr POINT kLitAtEnd{309, 268};
constexpr POINT kOtherAtEnd{303, 270};

INSTANTIATE_TEST_SUITE_P(GaugePainter, PinnedNeedles,
                         testing::Values(PinnedNeedle{"below the range", 0, 100, -50, kLitAtStart,
                                                      kOtherAtStart},
                                         PinnedNeedle{"minimum", 0, 100, 0, kLitAtStart, kOtherAtStart},
                                         PinnedNeedle{"maximum", 0, 100, 100, kLitAtEnd, kOtherAtEnd},
                                         PinnedNeedle{"above the range", 0, 100, 150, kLitAtEnd, kOtherAtEnd},
                                         PinnedNeedle{"not a number: 0 / 0", 7, 7, 7, kLitAtEnd, kOtherAtEnd},
                                         PinnedNeedle{"infinite", 7, 7, 6, kLitAtStart, kOtherAtStart}));

TEST_F(GaugePainterTest, DrawsNoNeedleOnHubAndGap) {
    Gauge gauge = NeedleAlone();
    for (int value = 0; value <= 100; value += 5) {
        gauge.SetValue(value);
        Paint(gauge);
        // The hub has a radius of 16, minus the highlighted edge.
        EXPECT_EQ(CountIn({290, 230, 311, 251}, kBack), 21 * 21) << value;
        // In the gap between the ends of the scale, well away from both.
        EXPECT_EQ(CountIn({295, 300, 306, 390}, kBack), 11 * 90) << value;
    }
}

TEST_F(GaugePainterTest, DrawsBothMarkersAtTheValue) {
    Gauge gauge = ColouredGauge();
    gauge.SetValue(25);
    gauge.SetValue(75);
    Paint(gauge);
    // The lowest value's marker is at 172.5 degrees and leans clockwise; the highest value's is at 7.5
    // degrees and leans back.
    EXPECT_EQ(m_canvas.At(155, 217), kMarker);
    EXPECT_EQ(m_canvas.At(154, 225), kFace);
    EXPECT_EQ(m_canvas.At(445, 217), kMarker);
    EXPECT_EQ(m_canvas.At(446, 225), kFace);
}

TEST_F(GaugePainterTest, DrawsOnlyTheMarkersThatAreOn) {
    Gauge gauge = ColouredGauge();
    gauge.SetValue(25);
    gauge.SetValue(75);
    gauge.ToggleMinMarker();
    Paint(gauge);
    EXPECT_EQ(m_canvas.At(155, 217), kFace);
    EXPECT_EQ(m_canvas.At(445, 217), kMarker);
    gauge.ToggleMinMarker();
    gauge.ToggleMaxMarker();
    Paint(gauge);
    EXPECT_EQ(m_canvas.At(155, 217), kMarker);
    EXPECT_EQ(m_canvas.At(445, 217), kFace);
}

TEST_F(GaugePainterTest, CutsTheRestingMarkersAtTheEdgeOfTheFace) {
    // Before the first value, the lowest value's marker is at the maximum and leans beyond it; the other is
    // at the minimum and leans beyond that.
    Gauge gauge = ColouredGauge();
    Paint(gauge);
    EXPECT_EQ(m_canvas.At(334, 383), kBack);
    EXPECT_EQ(m_canvas.At(266, 383), kBack);
}

TEST_F(GaugePainterTest, DrawsTheNeedleOverTheMarkers) {
    Gauge gauge = ColouredGauge();
    gauge.SetValue(50);
    Paint(gauge);
    EXPECT_EQ(m_canvas.At(300, 85), kShade);
    EXPECT_EQ(m_canvas.At(304, 94), kMarker);  // the lowest
    EXPECT_EQ(m_canvas.At(296, 94), kMarker);  // the highest
}

TEST_F(GaugePainterTest, WritesTheValueAboveTheDial) {
    Gauge gauge = NeedleAlone();
    gauge.SetValueDecimals(0);
    gauge.SetValue(8);
    Paint(gauge);
    const CRect ink = InkIn(kAboveDial);
    ASSERT_LT(ink.left, ink.right);
    EXPECT_GT(CountIn(ink, kText), 20);
    // The font is 40 high, with the text height of its metrics: the baseline is at about 240 - 20 - 160.
    EXPECT_NEAR(ink.bottom, 60, 4);
    // The blank after the value is part of the centred text, so the ink is half a blank further left.
    EXPECT_NEAR((ink.left + ink.right) / 2.0, 295, 4);
}

TEST_F(GaugePainterTest, WritesTheUnitAfterTheValue) {
    Gauge gauge = NeedleAlone();
    gauge.SetValueDecimals(0);
    gauge.SetValue(8);
    Paint(gauge);
    const int without = InkIn(kAboveDial).Width();
    gauge.SetUnits("km/h");
    Paint(gauge);
    const CRect ink = InkIn(kAboveDial);
    EXPECT_GT(ink.Width(), 3 * without);
    EXPECT_NEAR((ink.left + ink.right) / 2.0, 300, 3);
}

TEST_F(GaugePainterTest, WritesThePeakBelowTheDialIfItIsOn) {
    Gauge gauge = NeedleAlone();
    gauge.SetRangeDecimalsZero();
    Paint(gauge);
    // 1.9 text heights below the circle, under the labels of the scale.
    EXPECT_EQ(CountIn(kPeakLine, kText), 0);
    gauge.TogglePeak();
    Paint(gauge);
    EXPECT_GT(CountIn(kPeakLine, kText), 100);
    const CRect ink = InkIn(kPeakLine);
    EXPECT_NEAR((ink.left + ink.right) / 2.0, 295, 5);
}

TEST_F(GaugePainterTest, WritesThePeakAndNotTheValueInThePeakLine) {
    Gauge low = NeedleAlone();
    low.TogglePeak();
    low.ToggleMaxMarker();
    low.SetValueDecimals(0);
    low.SetValue(1000000);
    low.SetValue(1);
    Paint(low);
    const int wide = InkIn(kPeakLine).Width();
    low.ResetPeak();
    Paint(low);
    EXPECT_LT(InkIn(kPeakLine).Width(), wide);
}

TEST_F(GaugePainterTest, WritesOnTheBackgroundColour) {
    // A text wider than the window paints its background over the left frame.
    const CRect frame{0, 45, 1, 60};
    Gauge gauge = NeedleAlone();
    Paint(gauge);
    EXPECT_EQ(CountIn(frame, RGB(0, 0, 0)), 15);
    gauge.SetUnits(std::string(200, '.'));
    Paint(gauge);
    EXPECT_EQ(CountIn(frame, RGB(0, 0, 0)), 0);
    EXPECT_GT(CountIn(frame, kBack), 0);
}

TEST_F(GaugePainterTest, SurvivesNumbersWithHundredsOfDigits) {
    Gauge gauge = ColouredGauge();
    gauge.SetUnits(std::string(500, 'W'));
    gauge.SetValue(1e308);
    gauge.SetRange(-1e308, 1e308);
    Paint(gauge);
    // The text covers the whole width of the window.
    EXPECT_GT(CountIn({1, 30, 60, 70}, kText), 20);
    EXPECT_GT(CountIn({540, 30, 599, 70}, kText), 20);
}

TEST_F(GaugePainterTest, KeepsTheDialUntilItIsDiscarded) {
    Gauge gauge = NeedleAlone();
    Paint(gauge);
    gauge.SetFaceColor(RGB(1, 2, 3));
    Paint(gauge);
    EXPECT_EQ(m_canvas.At(400, 240), kFace);
    m_painter.DiscardDial();
    Paint(gauge);
    EXPECT_EQ(m_canvas.At(400, 240), RGB(1, 2, 3));
}

TEST_F(GaugePainterTest, PaintsAValueWithoutMakingTheDialAgain) {
    Gauge gauge = ColouredGauge();
    const int objects = LivingGdiObjects();
    Paint(gauge);
    const int withDial = LivingGdiObjects();
    // Device context, bitmap, font and region of the dial; device context and bitmap of the surface.
    EXPECT_EQ(withDial, objects + 6);
    for (int i = 0; i < 1000; ++i) {
        gauge.SetValue(i / 10.0);
        Paint(gauge);
    }
    EXPECT_EQ(LivingGdiObjects(), withDial);
    m_painter.DiscardDial();
    EXPECT_EQ(LivingGdiObjects(), objects);
}

TEST_F(GaugePainterTest, DrawsNothingInAnEmptyWindow) {
    m_painter.Paint(m_canvas.Dc(), CRect{0, 0, 0, 0}, ColouredGauge());
    m_painter.Paint(m_canvas.Dc(), CRect{0, 0, 100, 0}, ColouredGauge());
    m_painter.Paint(m_canvas.Dc(), CRect{0, 0, 0, 100}, ColouredGauge());
    EXPECT_EQ(m_canvas.At(0, 0), kUntouched);
    EXPECT_EQ(m_canvas.At(50, 50), kUntouched);
}

TEST_F(GaugePainterTest, DrawsOnlyBackgroundInAWindowOfAFewPixels) {
    m_painter.Paint(m_canvas.Dc(), CRect{0, 0, 50, 5}, ColouredGauge());
    EXPECT_EQ(CountIn({1, 1, 49, 4}, kBack), 48 * 3);
    EXPECT_EQ(m_canvas.At(10, 5), kUntouched);
}

TEST_F(GaugePainterTest, PaintsEverySmallWindow) {
    const Gauge gauge = ColouredGauge();
    const int objects = LivingGdiObjects();
    for (int height = 1; height < 60; ++height) {
        m_painter.DiscardDial();
        m_painter.Paint(m_canvas.Dc(), CRect{0, 0, 61 - height, height}, gauge);
        EXPECT_EQ(m_canvas.At(0, 0), RGB(0, 0, 0)) << height;
    }
    m_painter.DiscardDial();
    EXPECT_EQ(LivingGdiObjects(), objects);
    EXPECT_EQ(m_canvas.At(100, 100), kUntouched);
}

}  // namespace
}  // namespace plotvane
