#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include "plot/chart/MultiPlotCtrl.h"
#include "tests/support/Canvas.h"

namespace plotvane::test {

// A chart as the main window sets it up at its first size: client 620 x 310, plot 54..610 by 10..300 (limits
// 0..100 with units, a margin of one character), nine grid lines in each direction.
class ChartFixture : public testing::Test {
protected:
    static constexpr int kLeft = 54;
    static constexpr int kTop = 10;
    static constexpr int kRight = 610;
    static constexpr int kBottom = 300;

    ChartFixture() {
        RegisterWindowClass(L"ChartFixture", 0);
        parent.CreateEx(0, L"ChartFixture", "", WS_POPUP | WS_VISIBLE, CRect{0, 0, 640, 320}, nullptr, 0);
        chart.SetGridCounts({.vertical = 9, .horizontal = 9});
        chart.SetLabelMargin(1);
        chart.SetSamplesPerScreen(0);
        chart.SetYUnits("", "", "");
        Create(626, 316);
    }

    // The size includes both edges, of 3 pixels on each side.
    bool Create(int width, int height) {
        return chart.Create(WS_CHILD | WS_VISIBLE, CRect{0, 0, width, height}, parent.m_hWnd, 1);
    }

    void Recreate(int width, int height) {
        chart.ReleasePictures();
        chart.DestroyWindow();
        ASSERT_TRUE(Create(width, height));
    }

    // Makes one trace visible: a red one, with one row for each unit. The others are drawn in black, the
    // colour of the background, along the bottom row. Frame and grid are black too.
    void ShowOneTraceOnly() {
        chart.SetGridColor(kBlack);
        for (int k = 0; k < kTraceCount; ++k) chart.SetTraceColor(k == kTrace ? kRed : kBlack, k);
        chart.SetRange(0, 290, kTrace);
    }

    // The visible trace gets the value; the others get their lower limit.
    static TraceValues Values(double value) {
        TraceValues values{};
        values[kTrace] = value;
        return values;
    }
    void Append(double value) { chart.AppendPoints(Values(value)); }

    // The pixels that the window would show now.
    struct Shown : Canvas {
        explicit Shown(CMultiPlotCtrl& chart, int width = 620, int height = 310) : Canvas(width, height) {
            chart.Draw(Dc());
        }
    };

    // The last trace, so that the others do not draw over it.
    static constexpr int kTrace = kTraceCount - 1;
    static constexpr Colour kRed = 0x0000FF;

    Prefs prefs;
    RunState state;
    SlotTable slots;
    CWnd parent;
    CMultiPlotCtrl chart{prefs, state, slots};
};

}  // namespace plotvane::test
