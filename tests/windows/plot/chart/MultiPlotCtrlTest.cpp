#include "plot/chart/MultiPlotCtrl.h"

#include <gtest/gtest.h>

#include <iterator>
#include <limits>
#include <random>
#include <tuple>
#include <utility>

#include "tests/support/BareChart.h"
#include "tests/support/ChartFixture.h"

namespace plotvane::test {
namespace {

class MultiPlotCtrl : public ChartFixture {
protected:
    bool HasUpdateRegion() const { return ::GetUpdateRect(chart.m_hWnd, nullptr, FALSE) != 0; }
};

TEST_F(MultiPlotCtrl, EdgesTakeThreePixelsOnEachSide) {
    const CRect client = chart.GetClientRect();
    EXPECT_EQ(client.Width(), 620);
    EXPECT_EQ(client.Height(), 310);
    constexpr DWORD kEdges = WS_EX_STATICEDGE | WS_EX_CLIENTEDGE;
    EXPECT_EQ(static_cast<DWORD>(::GetWindowLongPtrW(chart.m_hWnd, GWL_EXSTYLE)) & kEdges, kEdges);
    constexpr DWORD kClassStyle = CS_HREDRAW | CS_VREDRAW;
    EXPECT_EQ(static_cast<DWORD>(::GetClassLongPtrW(chart.m_hWnd, GCL_STYLE)), kClassStyle);
}

TEST_F(MultiPlotCtrl, CreationFailureIsAnswered) {
    CMultiPlotCtrl other(prefs, state, slots);
    EXPECT_FALSE(other.Create(WS_CHILD, CRect{0, 0, 10, 10}, nullptr, 1));
    other.AppendPoints(Values(1));
    other.InvalidateCtrl();
    const Shown shown(other);
    EXPECT_EQ(shown.At(5, 5), kUntouched);
}

// Where trace and grid meet, their bits mix.
TEST_F(MultiPlotCtrl, TracesAreOredOverTheGrid) {
    chart.SetBackgroundColor(0x402000);
    chart.SetGridColor(0x008040);
    chart.SetTraceColor(0x100081, kTrace);
    chart.SetRange(0, 290, kTrace);
    for (int i = 0; i < 10; ++i) Append(261);  // the row of the first dotted line
    const Shown shown(chart);
    EXPECT_EQ(shown.At(0, 0), 0x402000u);
    EXPECT_EQ(shown.At(100, 100), 0x402000u);
    EXPECT_EQ(shown.At(kLeft + 4, 39), 0x402000u | 0x008040u);
    EXPECT_EQ(shown.At(602, 39), 0x008040u | 0x100081u);  // 548 columns from the left edge: a dot
    EXPECT_EQ(shown.At(603, 39), 0x402000u | 0x100081u);
}

// The pen width and the background: on black the grid is a few dots, on any other colour the whole picture.
class ChartPixelByPixel : public MultiPlotCtrl, public testing::WithParamInterface<std::tuple<int, Colour>> {
protected:
    ChartPixelByPixel() {
        prefs.thickness = std::get<0>(GetParam());
        m_look.penWidth = prefs.thickness;
        m_look.background = std::get<1>(GetParam());
        chart.SetBackgroundColor(m_look.background);
        chart.SetGridColor(m_look.grid);
        for (int k = 0; k < kTraceCount; ++k) {
            m_look.traces[k] = chart.GetTraceColor(k);
            m_look.lower[k] = -10.0 * k;
            m_look.upper[k] = 100.0 + 5.0 * (k % 3);
            chart.SetTraceColor(m_look.traces[k], k);
            chart.SetRange(m_look.lower[k], m_look.upper[k], k);
        }
    }

    // Each trace wanders about, somewhat beyond its limits, and leaps far out of range now and then.
    void Walk() {
        for (double& value : m_values) {
            value = value * 0.98 + static_cast<double>(m_random() % 1001) / 20.0 - 23.0;
            if (m_random() % 100 == 0 && value < 500.0) value *= -30.0;
        }
    }

    void ExpectSamePixels(const BareChart& bare) {
        const Shown shown(chart);
        Canvas expected(620, 310);
        bare.Show(expected.Dc());
        for (int y = 0; y < 310; ++y) {
            for (int x = 0; x < 620; ++x) ASSERT_EQ(shown.At(x, y), expected.At(x, y)) << x << ", " << y;
        }
    }

    BareChart::Look m_look{.width = 620,
                           .height = 310,
                           .plotLeft = kLeft,
                           .gridLines = 9,
                           .penWidth = 0,
                           .background = kBlack,
                           .grid = 0x60FF80,
                           .traces = {},
                           .lower = {},
                           .upper = {}};
    TraceValues m_values{};

private:
    std::mt19937 m_random{20};
};

TEST_P(ChartPixelByPixel, ShowsWhatThePlainDrawingCallsShow) {
    BareChart bare(m_look);
    for (int i = 0; i < 600; ++i) {
        SCOPED_TRACE(testing::Message() << "sample " << i);
        Walk();
        state.pixelShift = i % 16;
        chart.SetRedraw(i % 5 != 0);
        if (i % 97 == 96) {
            chart.AppendGap(m_values);
            bare.Gap(m_values);
        }
        chart.AppendPoints(m_values);
        bare.Append(m_values, state.pixelShift);
        chart.SetRedraw(true);
        if (i % 37 == 0 || i == 599) ExpectSamePixels(bare);
        if (HasFatalFailure()) return;
    }
}

INSTANTIATE_TEST_SUITE_P(All, ChartPixelByPixel,
                         testing::Combine(testing::Values(0, 10), testing::Values(kBlack, Colour{0x281400})));

// Thirty times the range away, above and below, and right through the plot. The chart draws shorter lines in
// the place of these; the plain drawing calls draw them whole.
class FarLinesOfWidePens : public ChartPixelByPixel {};

TEST_P(FarLinesOfWidePens, HaveThePixelsOfTheWholeLines) {
    BareChart bare(m_look);
    std::mt19937 random{5};
    for (int i = 0; i < 300; ++i) {
        SCOPED_TRACE(testing::Message() << "sample " << i);
        for (int k = 0; k < kTraceCount; ++k) {
            const double range = m_look.upper[k] - m_look.lower[k];
            const double inside = m_look.lower[k] + range * static_cast<double>(random() % 1000) / 1000.0;
            constexpr double kTimes[] = {0.0, 30.0, -30.0, 29.7, -30.1};
            m_values[k] = inside + range * kTimes[random() % std::size(kTimes)];
        }
        state.pixelShift = i % 16;
        chart.AppendPoints(m_values);
        bare.Append(m_values, state.pixelShift);
        if (i % 16 == 15) ExpectSamePixels(bare);
        if (HasFatalFailure()) return;
    }
}

INSTANTIATE_TEST_SUITE_P(All, FarLinesOfWidePens,
                         testing::Combine(testing::Values(2, 5, 10), testing::Values(kBlack)));

TEST_F(MultiPlotCtrl, WindowShowsThePictureAndIsValidAfterwards) {
    chart.SetGridColor(0x30A0C0);
    EXPECT_TRUE(HasUpdateRegion());
    chart.UpdateWindow();
    EXPECT_FALSE(HasUpdateRegion());
    const CClientDC dc(chart.m_hWnd);
    EXPECT_EQ(::GetPixel(dc, kLeft, kTop), 0x30A0C0u);
    EXPECT_EQ(::GetPixel(dc, kLeft + 1, kTop + 1), kBlack);
}

TEST_F(MultiPlotCtrl, EverySampleIsSeenAtOnce) {
    ShowOneTraceOnly();
    chart.UpdateWindow();
    const CClientDC window(chart.m_hWnd);
    Append(100);
    Append(100);
    EXPECT_EQ(::GetPixel(window, 607, 200), kRed);
    EXPECT_FALSE(HasUpdateRegion());
    Append(50);
    EXPECT_EQ(::GetPixel(window, 604, 200), kRed);
    EXPECT_EQ(::GetPixel(window, 609, 250), kRed);
    chart.AppendGap(Values(50));
    EXPECT_EQ(::GetPixel(window, 574, 200), kRed);
    EXPECT_EQ(::GetPixel(window, 609, 250), kBlack);
    EXPECT_FALSE(HasUpdateRegion());
}

TEST_F(MultiPlotCtrl, AFullRedrawInvalidatesTheWholeWindow) {
    chart.UpdateWindow();
    chart.InvalidateCtrl();
    CRect update;
    ::GetUpdateRect(chart.m_hWnd, &update, FALSE);
    EXPECT_EQ(update.Width(), 620);
    EXPECT_EQ(update.Height(), 310);
}

TEST_F(MultiPlotCtrl, ASampleBetweenTwoFullRedrawsIsNeverSeen) {
    ShowOneTraceOnly();
    Append(100);
    Append(100);
    chart.UpdateWindow();
    const CClientDC window(chart.m_hWnd);

    chart.SetRange(0, 290, kTrace);
    Append(50);
    EXPECT_EQ(::GetPixel(window, 609, 250), kBlack);
    chart.InvalidateCtrl();
    chart.UpdateWindow();
    EXPECT_EQ(::GetPixel(window, 609, 250), kBlack);
    EXPECT_EQ(::GetPixel(window, 607, 200), kBlack);

    Append(50);
    EXPECT_EQ(::GetPixel(window, 609, 250), kRed);
}

TEST_F(MultiPlotCtrl, SamplesAreSeenInTheWindowThatItHasNow) {
    for (const int width : {426, 626}) {
        Recreate(width, 216);
        ShowOneTraceOnly();
        chart.SetRange(0, 190, kTrace);
        chart.UpdateWindow();
        Append(100);
        Append(100);
        const CClientDC window(chart.m_hWnd);
        EXPECT_EQ(::GetPixel(window, width - 6 - 13, 100), kRed) << width;
    }
}

TEST_F(MultiPlotCtrl, NothingReachesTheScreenWhileRedrawIsOff) {
    ShowOneTraceOnly();
    Append(100);
    Append(100);
    chart.UpdateWindow();
    const CClientDC window(chart.m_hWnd);
    EXPECT_EQ(::GetPixel(window, 607, 200), kRed);

    chart.SetRedraw(false);
    chart.SetRange(0, 290, kTrace);
    Append(50);
    EXPECT_FALSE(HasUpdateRegion());
    EXPECT_EQ(::GetPixel(window, 607, 200), kRed);

    chart.SetRedraw(true);
    EXPECT_TRUE(HasUpdateRegion());
    chart.UpdateWindow();
    EXPECT_EQ(::GetPixel(window, 604, 200), kBlack);
    EXPECT_EQ(::GetPixel(window, 609, 250), kRed);
}

TEST_F(MultiPlotCtrl, APaintAskedForWhileRedrawIsOffComesBehindIt) {
    ShowOneTraceOnly();
    Append(100);
    Append(100);
    chart.UpdateWindow();
    const CClientDC window(chart.m_hWnd);

    chart.SetRedraw(false);
    Append(50);
    chart.Invalidate();
    chart.UpdateWindow();
    EXPECT_FALSE(HasUpdateRegion());
    EXPECT_EQ(::GetPixel(window, 609, 250), kBlack);

    chart.SetRedraw(true);
    chart.UpdateWindow();
    EXPECT_EQ(::GetPixel(window, 609, 250), kRed);
}

TEST_F(MultiPlotCtrl, RedrawWithoutAChangeLeavesTheWindowAlone) {
    chart.UpdateWindow();
    chart.SetRedraw(false);
    chart.SetRedraw(true);
    EXPECT_FALSE(HasUpdateRegion());
}

TEST_F(MultiPlotCtrl, FullRedrawThatWaitedStillComesBeforeTheNextSample) {
    ShowOneTraceOnly();
    Append(100);
    Append(100);
    chart.SetRedraw(false);
    chart.SetRange(0, 290, kTrace);
    Append(100);
    chart.SetRedraw(true);
    const Shown shown(chart);
    EXPECT_EQ(shown.At(606, 200), kRed);
    EXPECT_EQ(shown.At(604, 200), kBlack);  // the segments before are gone
}

TEST_F(MultiPlotCtrl, NewWindowHasPicturesOfItsSize) {
    chart.SetGridColor(0x30A0C0);
    Recreate(426, 216);
    const Shown shown(chart, 420, 210);
    EXPECT_EQ(shown.At(kLeft, kTop), 0x30A0C0u);
    EXPECT_EQ(shown.At(411, 201), 0x30A0C0u);
    EXPECT_EQ(shown.At(412, 202), kBlack);
}

TEST_F(MultiPlotCtrl, PicturesKeepTheirSizeUntilReleased) {
    chart.SetBackgroundColor(0x402000);
    chart.MoveWindow(CRect{0, 0, 636, 320});
    chart.InvalidateCtrl();
    {
        const Shown shown(chart, 630, 314);
        EXPECT_EQ(shown.At(619, 309), 0x402000u);
        EXPECT_EQ(shown.At(625, 5), kBlack);
        EXPECT_EQ(shown.At(5, 312), kBlack);
    }
    chart.ReleasePictures();
    EXPECT_EQ(Shown(chart, 630, 314).At(5, 5), kBlack);
    chart.InvalidateCtrl();
    const Shown shown(chart, 630, 314);
    EXPECT_EQ(shown.At(5, 5), 0x402000u);
    EXPECT_EQ(shown.At(625, 312), 0x402000u);
}

TEST_F(MultiPlotCtrl, TinyWindowsPaintAndStayValid) {
    TraceValues wild;
    wild.fill(std::numeric_limits<double>::quiet_NaN());
    wild[0] = 1e300;
    wild[1] = -1e300;
    slots[0].group = 1;
    for (const auto& [width, height] :
         {std::pair{0, 0}, {1, 1}, {6, 6}, {7, 7}, {20, 300}, {300, 20}, {26, 26}, {70, 40}, {300, 26}}) {
        SCOPED_TRACE(testing::Message() << width << " x " << height);
        Recreate(width, height);
        for (const int shift : {3, 0, 15, 1000, -3}) {
            state.pixelShift = shift;
            chart.AppendPoints(wild);
            chart.AppendGap(wild);
            chart.SetRange(1, 1, 0);
            chart.UpdateWindow();
            EXPECT_FALSE(HasUpdateRegion());
        }
    }
}

TEST_F(MultiPlotCtrl, SmallWindowIsFilledWithTheBackground) {
    chart.SetBackgroundColor(0x402000);
    Recreate(10, 10);
    EXPECT_EQ(Shown(chart, 4, 4).At(3, 3), 0x402000u);
}

TEST_F(MultiPlotCtrl, KeepsNoGdiObjectTooMany) {
    const auto use = [&] {
        Recreate(426, 216);
        slots[0].group = 1;
        for (int k = 0; k < kTraceCount; ++k) chart.SetTraceColor(0x123456, k);
        chart.SetBackgroundColor(0x010101);
        for (int i = 0; i < 50; ++i) Append(i * 10);
        chart.UpdateWindow();
    };
    use();
    const int before = LivingGdiObjects();
    for (int i = 0; i < 5; ++i) use();
    EXPECT_EQ(LivingGdiObjects(), before);
    chart.ReleasePictures();
    EXPECT_EQ(LivingGdiObjects(), before - 2);  // the picture is a bitmap in a device context

    const int all = LivingGdiObjects();
    { CMultiPlotCtrl other(prefs, state, slots); }
    EXPECT_EQ(LivingGdiObjects(), all);
}

}  // namespace
}  // namespace plotvane::test
