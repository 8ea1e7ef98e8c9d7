#include "meter/DialPicture.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace plotvane {
namespace {

constexpr COLORREF kBlackPen = RGB(0, 0, 0);
constexpr COLORREF kBack = RGB(0, 0, 90);
constexpr COLORREF kFace = RGB(20, 60, 20);
constexpr COLORREF kTicks = RGB(250, 240, 10);

Gauge ColouredGauge() {
    Gauge gauge;
    gauge.SetBackColor(kBack);
    gauge.SetFaceColor(kFace);
    gauge.SetTicksColor(kTicks);
    return gauge;
}

// A dial without needle, markers and value, as the meter keeps it.
class DialPictureTest : public testing::Test {
protected:
    COLORREF At(DialPoint point) const { return At(m_dial, point); }

    static COLORREF At(const DialPicture& dial, DialPoint point) {
        return ::GetPixel(dial.Dc(), point.x, point.y);
    }

    DialPicture m_dial{CRect{0, 0, 184, 161}, ColouredGauge()};
};

TEST_F(DialPictureTest, FillsTheWindowInsideABlackFrame) {
    for (const DialPoint corner : {DialPoint{0, 0}, {183, 0}, {0, 160}, {183, 160}})
        EXPECT_EQ(At(corner), kBlackPen);
    EXPECT_EQ(At({92, 0}), kBlackPen);
    EXPECT_EQ(At({183, 80}), kBlackPen);
    EXPECT_EQ(At({1, 1}), kBack);
    EXPECT_EQ(At({182, 159}), kBack);
    EXPECT_EQ(At({20, 80}), kBack);
}

TEST_F(DialPictureTest, FillsTheFaceAndLeavesHubAndGapFree) {
    EXPECT_EQ(At({92, 50}), kFace);
    EXPECT_EQ(At({60, 80}), kFace);
    EXPECT_EQ(At({125, 80}), kFace);
    EXPECT_EQ(At({65, 115}), kFace);
    EXPECT_EQ(At({92, 80}), kBack);   // inside the inner arc
    EXPECT_EQ(At({92, 110}), kBack);  // between the two ends of the scale
    EXPECT_EQ(At({92, 132}), kBack);
}

TEST_F(DialPictureTest, OutlinesTheFaceWithTheColourOfTheTicks) {
    const FacePoints face = m_dial.Geometry().Face();
    for (std::size_t i = 0; i < face.size(); ++i)
        EXPECT_EQ(At(face[i]), kTicks) << i << ": " << face[i].x << ", " << face[i].y;
    // The two straight edges, half way from (78, 131) to (91, 85) and from (106, 131) to (93, 85), allowing
    // one pixel for rounding.
    const auto edgeIsNear = [this](int x, int y) { return At({x, y}) == kTicks || At({x + 1, y}) == kTicks; };
    EXPECT_TRUE(edgeIsNear(84, 108));
    EXPECT_TRUE(edgeIsNear(99, 108));
}

TEST_F(DialPictureTest, ShadowsTheOuterEdgeAndHighlightsTheInner) {
    const COLORREF shadow = ::GetSysColor(COLOR_BTNSHADOW);
    const COLORREF highlight = ::GetSysColor(COLOR_BTNHIGHLIGHT);
    ASSERT_NE(shadow, highlight);
    const FacePoints bevel = BevelOf(m_dial.Geometry().Face());
    // Where the arc is flat, from 60 to 120 degrees, the bevel does not touch the outline.
    for (std::size_t i = 27; i <= 39; ++i) EXPECT_EQ(At(bevel[i]), shadow) << i;
    EXPECT_EQ(At({92, 26}), shadow);
    EXPECT_EQ(At({92, 25}), kBack);
    EXPECT_EQ(At({91, 76}), highlight);
    EXPECT_EQ(At({92, 76}), highlight);
    EXPECT_EQ(At({93, 76}), highlight);
    EXPECT_EQ(At({92, 77}), kBack);
}

TEST_F(DialPictureTest, CoversTheBevelThatLiesUnderTheFace) {
    // Below the centre, the outer bevel is one pixel inside the face and the inner one below the hub.
    const FacePoints bevel = BevelOf(m_dial.Geometry().Face());
    EXPECT_EQ(At(bevel[3]), kFace);  // -60 degrees, beside the tick
    EXPECT_EQ(At({92, 81}), kBack);
}

TEST_F(DialPictureTest, DrawsAllTicksFromTheRimAndLeavesOutTheirLastPixel) {
    for (const auto& [from, to] : m_dial.Geometry().Ticks()) {
        EXPECT_EQ(At(from), kTicks) << from.x << ", " << from.y;
        EXPECT_EQ(At(to), kFace) << to.x << ", " << to.y;
    }
    for (int step = 0; step < 5; ++step) {
        EXPECT_EQ(At({92, 27 + step}), kTicks) << step;   // 90 degrees
        EXPECT_EQ(At({145 - step, 80}), kTicks) << step;  // 0
        EXPECT_EQ(At({39 + step, 80}), kTicks) << step;   // 180
    }
    for (int step = 0; step < 3; ++step) {
        EXPECT_EQ(At({129 - step, 43 + step}), kTicks) << step;   // 45
        EXPECT_EQ(At({55 + step, 43 + step}), kTicks) << step;    // 135
        EXPECT_EQ(At({129 - step, 117 - step}), kTicks) << step;  // -45
        EXPECT_EQ(At({55 + step, 117 - step}), kTicks) << step;   // 225
    }
}

TEST_F(DialPictureTest, DrawsEveryTickBetweenItsEnds) {
    // On a dial of this size a tick has 27 pixels; its middle may be rounded to either side.
    const DialPicture large{CRect{0, 0, 900, 900}, ColouredGauge()};
    ASSERT_EQ(large.Geometry().Radius(), 300);
    int ticks = 0;
    for (const auto& [from, to] : large.Geometry().Ticks()) {
        const DialPoint middle{(from.x + to.x) / 2, (from.y + to.y) / 2};
        bool found = false;
        for (int dx = -1; dx <= 1; ++dx)
            for (int dy = -1; dy <= 1; ++dy)
                found = found || At(large, {middle.x + dx, middle.y + dy}) == kTicks;
        EXPECT_TRUE(found) << middle.x << ", " << middle.y;
        ticks += found;
    }
    EXPECT_EQ(ticks, 21);
}

TEST_F(DialPictureTest, UsesABoldArialSizedByTheWindow) {
    LOGFONTW font{};
    ASSERT_NE(::GetObjectW(m_dial.Font().Get(), sizeof font, &font), 0);
    EXPECT_EQ(font.lfHeight, 13);
    EXPECT_EQ(font.lfWidth, 0);
    EXPECT_EQ(font.lfWeight, 700);
    EXPECT_EQ(font.lfItalic, 0);
    EXPECT_EQ(font.lfUnderline, 0);
    EXPECT_EQ(font.lfStrikeOut, 0);
    EXPECT_EQ(font.lfCharSet, ANSI_CHARSET);
    EXPECT_EQ(font.lfPitchAndFamily, 0x20);
    EXPECT_STREQ(font.lfFaceName, L"Arial");
}

TEST_F(DialPictureTest, PlacesTheTextsByTheMetricsOfItsFont) {
    CDC dc{m_dial.Dc()};
    const Selected font{dc, m_dial.Font()};
    const int height = dc.GetTextMetrics().tmHeight;
    ASSERT_GT(height, 0);
    EXPECT_EQ(m_dial.TextPlaces().minLabel, (DialPoint{78, 133 + height}));
    EXPECT_EQ(m_dial.TextPlaces().maxLabel, (DialPoint{106, 133 + height}));
    EXPECT_EQ(m_dial.TextPlaces().value, (DialPoint{92, 27 - height / 2}));
}

// The smallest rectangle around the pixels of `rect` that are not background.
CRect InkIn(const DialPicture& dial, const CRect& rect) {
    CRect ink{rect.right, rect.bottom, rect.left, rect.top};
    for (LONG y = rect.top; y < rect.bottom; ++y) {
        for (LONG x = rect.left; x < rect.right; ++x) {
            if (::GetPixel(dial.Dc(), x, y) == kBack) continue;
            ink = CRect{std::min(ink.left, x), std::min(ink.top, y), std::max(ink.right, x + 1),
                        std::max(ink.bottom, y + 1)};
        }
    }
    return ink;
}

TEST_F(DialPictureTest, WritesTheEndsOfTheScaleBelowThem) {
    Gauge gauge = ColouredGauge();
    gauge.SetRange(0, 8);
    gauge.SetRangeDecimalsZero();
    const DialPicture dial{CRect{0, 0, 600, 480}, gauge};
    const DialTextPlaces& places = dial.TextPlaces();
    ASSERT_EQ(places.minLabel.x, 259);
    ASSERT_EQ(places.maxLabel.x, 341);
    for (const DialPoint& place : {places.minLabel, places.maxLabel}) {
        // A digit has its foot on the baseline, is centred, and is lower than the font.
        const CRect around{place.x - 30, 402, place.x + 30, 470};
        const CRect ink = InkIn(dial, around);
        ASSERT_LT(ink.left, ink.right);
        EXPECT_NEAR((ink.left + ink.right) / 2.0, place.x, 2.5);
        EXPECT_NEAR(ink.bottom, place.y, 1.5);
        EXPECT_GT(ink.top, place.y - dial.Geometry().FontHeight());
    }
}

// Letters may reach beyond their cells, but not beyond these bounds.
TEST_F(DialPictureTest, HoldsAnyTextInItsBounds) {
    for (const int height : {161, 480}) {
        const CRect client{0, 0, 600, height};
        const DialPicture dial{client, ColouredGauge()};
        const Picture picture{client.Width(), client.Height()};
        CDC dc{picture.Dc()};
        const Selected font{dc, dial.Font()};
        dc.SetTextAlign(TA_CENTER | TA_BASELINE);
        dc.SetTextColor(RGB(255, 255, 255));
        dc.SetBkColor(RGB(0, 0, 255));
        for (const char* text : {"jjj", "fff", "\x83\x83", "\xC5g\xC7",
                                 "12.5 \xB0"
                                 "C",
                                 "WWW", "Qyp|"}) {
            const int width = dc.GetTextExtent(text).cx;
            const DialRect bounds = dial.TextBounds({300, 60}, width);
            EXPECT_LE(bounds.right - bounds.left, width + client.Height() / 20 + 6);
            dc.FillSolidRect(client, 0);
            dc.SetBkColor(RGB(0, 0, 255));
            dc.TextOut(300, 60, text);
            dc.FillSolidRect(CRect{bounds.left, bounds.top, bounds.right, bounds.bottom}, 0);
            dc.SetBkColor(RGB(0, 0, 255));
            EXPECT_TRUE(
                std::ranges::all_of(picture.Pixels(), [](auto pixel) { return (pixel & 0xFFFFFF) == 0; }))
                << text << ", " << height;
        }
    }
}

TEST_F(DialPictureTest, WritesInTheTextColour) {
    const DialPicture dial{CRect{0, 0, 600, 480}, ColouredGauge()};
    const DialPoint place = dial.TextPlaces().minLabel;
    int inTextColour = 0;
    for (int y = place.y - 30; y <= place.y; ++y)
        for (int x = place.x - 30; x < place.x + 30; ++x)
            inTextColour += At(dial, {x, y}) == RGB(0xC8, 0xC8, 0xC8);
    EXPECT_GT(inTextColour, 20);
}

TEST_F(DialPictureTest, KeepsTheDialInTheMiddleOfAWideWindow) {
    const DialPicture wide{CRect{0, 0, 600, 161}, ColouredGauge()};
    EXPECT_EQ(At(wide, {300, 27}), kTicks);
    EXPECT_EQ(At(wide, {247, 80}), kTicks);
    EXPECT_EQ(At(wide, {353, 80}), kTicks);
    EXPECT_EQ(At(wide, {300, 50}), kFace);
    EXPECT_EQ(At(wide, {100, 80}), kBack);
    EXPECT_EQ(At(wide, {500, 80}), kBack);
    EXPECT_EQ(At(wide, {599, 160}), kBlackPen);
}

TEST_F(DialPictureTest, IsOnlyBackgroundInAWindowOfAFewPixels) {
    const DialPicture tiny{CRect{0, 0, 40, 5}, ColouredGauge()};
    ASSERT_TRUE(tiny);
    EXPECT_EQ(tiny.FaceRegion(), nullptr);
    for (int x = 1; x < 39; ++x)
        for (int y = 1; y < 4; ++y) ASSERT_EQ(At(tiny, {x, y}), kBack) << x << ", " << y;
    EXPECT_EQ(At(tiny, {0, 0}), kBlackPen);
}

TEST_F(DialPictureTest, ReportsThatWindowsHasNoMemoryForIt) {
    const DialPicture impossible{CRect{0, 0, 0x7FFFFFFF, 0x7FFFFFFF}, ColouredGauge()};
    EXPECT_FALSE(impossible);
}

TEST_F(DialPictureTest, ReleasesAllItsObjects) {
    const int objects = LivingGdiObjects();
    for (int i = 0; i < 1000; ++i) const DialPicture dial{CRect{0, 0, 60, 50}, Gauge{}};
    EXPECT_EQ(LivingGdiObjects(), objects);
}

}  // namespace
}  // namespace plotvane
