#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "tests/support/ChartFixture.h"

namespace plotvane::test {
namespace {

constexpr Colour kGrid = 0x30A0C0;

// Frame, dotted grid and labels.
class ChartGrid : public ChartFixture {
protected:
    void Assign(int slot, std::string unit) {
        slots[slot].group = 1;
        slots[slot].unit = std::move(unit);
    }

    // The smallest rectangle around all pixels left of the plot that have one of the bits. Texts may be
    // smoothed, so a test can only check their place and their mixture of colours.
    CRect InkLeftOfPlot(Colour bits) {
        const Shown shown(chart);
        CRect ink(1000, 1000, 0, 0);
        for (int y = 0; y < 310; ++y) {
            for (int x = 0; x < kLeft; ++x) {
                if ((shown.At(x, y) & bits) == 0) continue;
                ink = CRect(std::min<LONG>(ink.left, x), std::min<LONG>(ink.top, y),
                            std::max<LONG>(ink.right, x + 1), std::max<LONG>(ink.bottom, y + 1));
            }
        }
        return ink;
    }
    bool HasInkLeftOfPlot(Colour bits) { return InkLeftOfPlot(bits).right > 0; }

    // Expects a text that ends at the labels' common edge, within the 14 pixels below `y`.
    static void ExpectTextBelow(const CRect& ink, int y) {
        EXPECT_GE(ink.top, y);
        EXPECT_LE(ink.bottom, y + 14);
        ExpectRightAligned(ink);
    }
    // Expects a text of digits on the baseline `y`.
    static void ExpectTextOn(const CRect& ink, int y) {
        EXPECT_NEAR(ink.bottom, y, 1);
        EXPECT_GE(ink.top, y - 12);
        ExpectRightAligned(ink);
    }
    static void ExpectRightAligned(const CRect& ink) {
        EXPECT_LE(ink.right, kLeft - 4);
        EXPECT_GE(ink.right, kLeft - 4 - 3);
    }
};

TEST_F(ChartGrid, OnlyFrameAndDotsAreShownBeforeTheFirstRecord) {
    chart.SetGridColor(kGrid);
    const Shown shown(chart);
    const auto isFrame = [](int x, int y) {
        const bool isInside = x >= kLeft && x <= kRight + 1 && y >= kTop && y <= kBottom + 1;
        return isInside && (x == kLeft || x == kRight + 1 || y == kTop || y == kBottom + 1);
    };
    const auto isDot = [](int x, int y) {
        if (x < kLeft || x >= kRight || y < kTop || y >= kBottom) return false;
        for (int i = 1; i <= 9; ++i) {
            if (y == kTop + 290 * i / 10 && (x - kLeft) % 4 == 0) return true;
            if (x == kLeft + 556 * i / 10 && (y - kTop) % 4 == 0) return true;
        }
        return false;
    };
    for (int y = 0; y < 310; ++y) {
        for (int x = 0; x < 620; ++x) {
            ASSERT_EQ(shown.At(x, y), isFrame(x, y) || isDot(x, y) ? kGrid : kBlack) << x << ", " << y;
        }
    }
}

TEST_F(ChartGrid, TheHighByteOfAColourIsDropped) {
    chart.SetGridColor(0xFF000000 | kGrid);
    chart.SetBackgroundColor(0x02400010);
    const Shown shown(chart);
    EXPECT_EQ(shown.At(kLeft, kTop), 0x400010u | kGrid);
    EXPECT_EQ(shown.At(kLeft + 4, 39), 0x400010u | kGrid);
    EXPECT_EQ(shown.At(0, 0), 0x400010u);
}

TEST_F(ChartGrid, LimitsAreElevenPixelsApartInTheirTracesColour) {
    chart.SetGridColor(kBlack);
    Assign(0, "V");
    Assign(1, "V");
    chart.SetTraceColor(0x0000FF, 0);
    chart.SetTraceColor(0x00FF00, 1);
    chart.InvalidateCtrl();
    const CRect first = InkLeftOfPlot(0x0000FF);
    const CRect second = InkLeftOfPlot(0x00FF00);
    ExpectTextBelow(first, kTop - 5);
    ExpectTextBelow(second, kTop + 6);
    EXPECT_EQ(second.top - first.top, 11);
    EXPECT_EQ(first.Width(), second.Width());
}

TEST_F(ChartGrid, LowerLimitsStackUpwardsFromTheBottomEdge) {
    chart.SetGridColor(kBlack);
    Assign(0, "");
    Assign(1, "");
    prefs.showUnits = false;
    chart.SetLabelMargin(3);       // the same left edge without the units
    chart.SetYUnits("", "", " ");  // no upper limits
    chart.SetTraceColor(0x0000FF, 0);
    chart.SetTraceColor(0x00FF00, 1);
    chart.SetRange(10, 100, 0);
    chart.SetRange(20, 100, 1);
    ExpectTextOn(InkLeftOfPlot(0x0000FF), kBottom + 1);
    ExpectTextOn(InkLeftOfPlot(0x00FF00), kBottom + 1 - 11);
}

TEST_F(ChartGrid, ZeroMinimumIsWrittenWhenZerosAreShown) {
    chart.SetGridColor(kBlack);
    chart.SetYUnits("", "", " ");
    Assign(0, "");
    chart.InvalidateCtrl();
    EXPECT_FALSE(HasInkLeftOfPlot(0xFFFFFF));
    prefs.showZeros = true;
    chart.InvalidateCtrl();
    const CRect ink = InkLeftOfPlot(0xFFFFFF);
    EXPECT_NEAR(ink.bottom, kBottom + 1, 1);
}

TEST_F(ChartGrid, TenChannelLayoutHasNoLimits) {
    chart.SetGridColor(kBlack);
    Assign(0, "V");
    chart.InvalidateCtrl();
    EXPECT_TRUE(HasInkLeftOfPlot(0xFFFFFF));
    state.tenChannels = true;
    chart.InvalidateCtrl();
    EXPECT_FALSE(HasInkLeftOfPlot(0xFFFFFF));
}

TEST_F(ChartGrid, EmptyFirstSlotShowsTheDefaultScaleInTheGridColour) {
    slots[0].group = 0;
    chart.SetGridColor(0x0000FF);
    const Shown shown(chart);
    const auto hasInk = [&](int top, int bottom) {
        bool found = false;
        for (int y = top; y < bottom; ++y) {
            for (int x = 0; x < kLeft; ++x) {
                if (shown.At(x, y) == kBlack) continue;
                EXPECT_EQ(shown.At(x, y) & 0xFFFF00, 0u);
                found = true;
            }
        }
        return found;
    };
    EXPECT_FALSE(hasInk(0, 2));
    EXPECT_TRUE(hasInk(2, 15));  // 255 on baseline 14
    EXPECT_FALSE(hasInk(16, 144));
    EXPECT_TRUE(hasInk(145, 158));  // 128 on 157
    EXPECT_FALSE(hasInk(159, 288));
    EXPECT_TRUE(hasInk(289, 302));  // 0 on 301
    EXPECT_FALSE(hasInk(303, 310));
    ExpectRightAligned(InkLeftOfPlot(0x0000FF));
}

TEST_F(ChartGrid, PlotMovesRightForWiderLimitsOfTheFirstTrace) {
    chart.SetGridColor(kGrid);
    chart.SetRange(0, 6000, 1);
    EXPECT_EQ(Shown(chart).At(kLeft, kTop), kGrid);
    chart.SetRange(0, 6000, 0);
    const Shown shown(chart);
    EXPECT_EQ(shown.At(60, kTop), kGrid);
    EXPECT_EQ(shown.At(59, kTop), kBlack);
}

}  // namespace
}  // namespace plotvane::test
