#include "app/ChartReadOut.h"

#include <gtest/gtest.h>

#include <string>

#include "app/DriveChart.h"
#include "tests/windows/framework/TestWnd.h"

namespace plotvane {
namespace {

// A chart of which each sample is recorded, five pixels after the one before.
class ChartReadOutTest : public testing::Test {
protected:
    ChartReadOutTest() {
        RegisterWindowClass(test::kTestClass, 0);
        m_dialog.CreateEx(WS_EX_TOPMOST, test::kTestClass, "", WS_POPUP | WS_VISIBLE, CRect(50, 50, 650, 350),
                          nullptr, 0);
        m_chart.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 600, 300), m_dialog.m_hWnd, 1);
        RecordedTraces traces;
        traces[0] = {true, 1, 0, false, "/min", "Speed", 0.0, 100.0};
        m_recording.BeginStretch(traces);
        m_state.pixelShift = 5;
        for (int i = 0; i < 40; ++i) Append();
        test::DispatchAll();
    }
    ~ChartReadOutTest() override {
        ::SetCursorPos(0, 0);
        test::DispatchAll();
    }

    void Append() {
        const auto sample = m_recording.End();
        m_chart.AppendPoints(TraceValues{});
        m_recording.Add(static_cast<double>(sample), Recording::Values{static_cast<double>(sample)}, 1);
        m_columns.AddSample(sample, m_state.pixelShift);
    }

    // So many columns left of that of the newest sample.
    void PointAt(int column) {
        const PixelRect& plot = m_chart.Geometry().Plot();
        POINT place{plot.right - 1 - column, plot.top + 50};
        ::ClientToScreen(m_chart.m_hWnd, &place);
        ::SetCursorPos(place.x, place.y);
        m_readOut.TakeMouse(m_chart.m_hWnd, WM_MOUSEMOVE);
    }
    void RestAt(int column) {
        PointAt(column);
        m_readOut.OnTimer();
    }

    // What the tip says; empty without one.
    static std::string Shown() {
        const HWND tip = ::FindWindowW(L"PlotvaneReadOut", nullptr);
        return tip && ::IsWindowVisible(tip) ? CWnd::FromHandle(tip)->GetWindowText() : std::string();
    }
    static std::string TextOf(const char* age, const char* value) {
        return std::string(age) + " s before the newest\r\nSpeed: " + value + " /min";
    }

    Prefs m_prefs;
    RunState m_state;
    SlotTable m_slots;
    Recording m_recording;
    ChartColumns m_columns;
    CWnd m_dialog;
    CDriveChart m_chart{m_prefs, m_state, m_slots, m_columns};
    ChartReadOut m_readOut{m_dialog, m_chart, m_recording, m_columns, m_prefs};
};

TEST_F(ChartReadOutTest, TellsTheColumnUnderAPointerThatRests) {
    PointAt(0);
    EXPECT_EQ(Shown(), "");
    m_readOut.OnTimer();
    EXPECT_EQ(Shown(), TextOf("0.00", "39"));
    RestAt(50);
    EXPECT_EQ(Shown(), TextOf("10.00", "29"));
}

TEST_F(ChartReadOutTest, FollowsTheTracesThatGoByUnderThePointer) {
    RestAt(50);
    m_state.pixelShift = 10;
    Append();
    m_readOut.OnTimer();
    EXPECT_EQ(Shown(), TextOf("9.00", "31"));
    m_chart.AppendGap(TraceValues{});
    m_readOut.OnTimer();
    EXPECT_EQ(Shown(), TextOf("3.00", "37"));
}

TEST_F(ChartReadOutTest, SaysNothingInAGap) {
    m_chart.AppendGap(TraceValues{});
    Append();
    RestAt(20);
    EXPECT_EQ(Shown(), "");
    RestAt(35);
    EXPECT_EQ(Shown(), TextOf("1.00", "39"));
}

TEST_F(ChartReadOutTest, SaysNothingWhereTheChartWasCleared) {
    m_chart.SetRange(0.0, 500.0, 0);
    RestAt(50);
    EXPECT_EQ(Shown(), "");
    Append();
    RestAt(50);
    EXPECT_EQ(Shown(), "");
    RestAt(1);
    EXPECT_EQ(Shown(), TextOf("1.00", "39"));
}

TEST_F(ChartReadOutTest, SaysNothingBesideThePlot) {
    RestAt(-3);
    EXPECT_EQ(Shown(), "");
    RestAt(200);  // older than the first sample
    EXPECT_EQ(Shown(), "");
}

TEST_F(ChartReadOutTest, GoesWhenThePointerMovesOrAButtonIsPressed) {
    RestAt(50);
    ASSERT_NE(Shown(), "");
    PointAt(60);
    EXPECT_EQ(Shown(), "");
    m_readOut.OnTimer();
    EXPECT_NE(Shown(), "");
    m_readOut.TakeMouse(m_chart.m_hWnd, WM_LBUTTONDOWN);
    EXPECT_EQ(Shown(), "");
}

TEST_F(ChartReadOutTest, StaysAwayWhileAButtonIsHeld) {
    PointAt(50);
    ::mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
    m_readOut.OnTimer();
    EXPECT_EQ(Shown(), "");
    ::mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
    m_readOut.OnTimer();
    EXPECT_NE(Shown(), "");
}

TEST_F(ChartReadOutTest, GoesWhenThePointerLeavesTheChart) {
    RestAt(50);
    ASSERT_NE(Shown(), "");
    ::SetCursorPos(5, 5);
    m_readOut.OnTimer();
    EXPECT_EQ(Shown(), "");
}

TEST_F(ChartReadOutTest, TakesNoFocus) {
    const HWND active = ::GetForegroundWindow();
    RestAt(50);
    ASSERT_NE(Shown(), "");
    EXPECT_EQ(::GetForegroundWindow(), active);
}

}  // namespace
}  // namespace plotvane
