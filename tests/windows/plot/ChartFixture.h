#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include "plot/MultiPlotCtrl.h"
#include "tests/windows/support/Canvas.h"

namespace plotvane::test {

// A chart as the main window sets it up, at the main window's first size: client 620 x 310, plot 54..610 by
// 10..300 (limits 0..100 with units, a margin of one character), nine grid lines each way.
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

    // With both edges, which take 3 pixels on each side.
    bool Create(int width, int height) {
        return chart.Create(WS_CHILD | WS_VISIBLE, CRect{0, 0, width, height}, parent.m_hWnd, 1);
    }

    void Recreate(int width, int height) {
        chart.ReleasePictures();
        chart.DestroyWindow();
        ASSERT_TRUE(Create(width, height));
    }

    // Only one trace is seen then: the others are drawn in the background's black, along the bottom row. It
    // is red, and every unit of it is one row. Neither frame nor grid is seen.
    void ShowOneTraceOnly() {
        chart.SetGridColor(kBlack);
        for (int k = 0; k < kTraceCount; ++k) chart.SetTraceColor(k == kTrace ? kRed : kBlack, k);
        chart.SetRange(0, 290, kTrace);
    }

    // To the one trace that is seen; the others are at their lower limit.
    static TraceValues Values(double value) {
        TraceValues values{};
        values[kTrace] = value;
        return values;
    }
    void Append(double value) { chart.AppendPoints(Values(value)); }

    // What the chart shows now, as the window would.
    struct Shown : Canvas {
        explicit Shown(CMultiPlotCtrl& chart, int width = 620, int height = 310) : Canvas(width, height) {
            chart.Draw(Dc());
        }
    };

    // The last one, so that the others do not draw over it.
    static constexpr int kTrace = kTraceCount - 1;
    static constexpr Colour kRed = 0x0000FF;

    Prefs prefs;
    RunState state;
    SlotTable slots;
    CWnd parent;
    CMultiPlotCtrl chart{prefs, state, slots};
};

}  // namespace plotvane::test
