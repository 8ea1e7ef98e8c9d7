// The boxes "Vertical scale" and "Horizontal scale", used while a drive is plotted.
#include <gtest/gtest.h>

#include "tests/support/system/MainDialog.h"
#include "tests/support/system/Records.h"
#include "tests/support/system/Session.h"

namespace plotvane::test {
namespace {

constexpr COLORREF kFirstTraceColour = 0x0000FF;
constexpr COLORREF kLastTraceColour = 0xA0A000;

class ScaleControls : public ::testing::Test {
protected:
    void SetUp() override {
        m_session.StartWithHost();
        m_session.Host().SendRecord(kFirstRecord);
        m_main = m_session.Main();
        ASSERT_TRUE(Becomes([this] { return m_main.Text(IDC_SCALE_MAX); }, L"6000"));
        ASSERT_TRUE(m_session.Shows(3, L"4.2 l/h"));
    }
    void NextRecord() {
        m_session.Host().SendRecord(kSecondRecord);
        ASSERT_TRUE(m_session.Shows(0, L"1780 /min"));
    }
    void ExpectSelected(int slot, const std::wstring& lowest, const std::wstring& highest) {
        EXPECT_EQ(ShownFrames(m_main), std::vector<int>{slot});
        EXPECT_EQ(m_main.Text(IDC_SCALE_MIN), lowest);
        EXPECT_EQ(m_main.Text(IDC_SCALE_MAX), highest);
    }

    Session m_session;
    RemoteWindow m_main;
};

TEST_F(ScaleControls, NextAndPreviousWalkTheSlots) {
    ExpectSelected(0, L"0", L"6000");
    m_main.Click(IDC_SCALE_PREVIOUS);
    ExpectSelected(0, L"0", L"6000");
    m_main.Click(IDC_SCALE_NEXT);
    ExpectSelected(1, L"-10", L"120");
    m_main.Click(IDC_SCALE_NEXT);
    ExpectSelected(2, L"0", L"250");
    m_main.Click(IDC_SCALE_PREVIOUS);
    ExpectSelected(1, L"-10", L"120");
}

TEST_F(ScaleControls, AnInactiveSlotGivesWayToTheFirst) {
    for (int press = 0; press < 3; ++press) m_main.Click(IDC_SCALE_NEXT);
    ExpectSelected(3, L"0", L"100");
    m_main.Click(IDC_SCALE_NEXT);
    ExpectSelected(0, L"0", L"6000");
}

TEST_F(ScaleControls, TheCaretNeverStaysInAValueBox) {
    m_main.Focus(IDC_VALUE_FIRST + 2);
    ExpectSelected(2, L"0", L"250");
    EXPECT_TRUE(Becomes([this] { return m_main.FocusedId(); }, IDC_SCALE_MAX));
}

TEST_F(ScaleControls, ATypedMaximumIsTakenWhenTheEditIsLeft) {
    m_main.Type(IDC_SCALE_MAX, L"5000");
    m_main.Focus(IDC_SCALE_MIN);
    NextRecord();
    ASSERT_TRUE(m_session.Closes());
    EXPECT_EQ(BytesOf(m_session.Scaling(kScalingFile)), ScalingBytes(3, "0,5000,-10,120,0,250,0,100,"));
}

TEST_F(ScaleControls, ATypedMinimumGoesToTheSelectedSlot) {
    m_main.Click(IDC_SCALE_NEXT);
    m_main.Type(IDC_SCALE_MIN, L"-40");
    m_main.Focus(IDC_SCALE_MAX);
    m_main.Click(IDC_SCALE_PREVIOUS);
    m_main.Click(IDC_SCALE_NEXT);
    ExpectSelected(1, L"-40", L"120");
    ASSERT_TRUE(m_session.Closes());
    EXPECT_EQ(BytesOf(m_session.Scaling(kScalingFile)), ScalingBytes(3, "0,6000,-40,120,0,250,0,100,"));
}

TEST_F(ScaleControls, TextThatIsNoNumberLeavesTheRange) {
    m_main.Type(IDC_SCALE_MAX, L"abc");
    m_main.Focus(IDC_SCALE_MIN);
    m_main.Click(IDC_SCALE_NEXT);
    m_main.Click(IDC_SCALE_PREVIOUS);
    ExpectSelected(0, L"0", L"6000");
}

TEST_F(ScaleControls, ATypedTextSurvivesThePixelShiftButtons) {
    m_main.Type(IDC_SCALE_MAX, L"123");
    m_main.Click(IDC_SHIFT_UP);
    EXPECT_EQ(m_main.Text(IDC_SCALE_MAX), L"123");
    EXPECT_EQ(m_main.Text(IDC_SHIFT_LABEL), L"PixelShift:4");
}

TEST_F(ScaleControls, EqualLimitsDrawAlongTheBottom) {
    m_main.Type(IDC_SCALE_MIN, L"50");
    m_main.Focus(IDC_SCALE_MAX);
    m_main.Type(IDC_SCALE_MAX, L"50");
    m_main.Focus(IDC_SCALE_MIN);
    NextRecord();
    m_session.Host().SendRecord(kFirstRecord);
    ASSERT_TRUE(m_session.Shows(0, L"780 /min"));
    // The trace is on the bottom row and nowhere else. The unused traces are there too, and the last of them
    // covers the others.
    const ChartOnScreen chart(m_main);
    const int bottom = chart.RowOf(0, 0, 100);
    const int x = chart.PlotRight() - 2;
    EXPECT_TRUE(Becomes([&] { return chart.Rows(x, kFirstTraceColour); }, std::vector<int>{}));
    EXPECT_EQ(chart.Rows(x, kLastTraceColour), std::vector<int>{bottom});
    EXPECT_TRUE(m_session.Closes());
}

TEST_F(ScaleControls, ThePixelShiftStaysBetween1And15) {
    m_main.Click(IDC_SHIFT_DOWN);
    EXPECT_EQ(m_main.Text(IDC_SHIFT_LABEL), L"PixelShift:2");
    m_main.Click(IDC_SHIFT_DOWN);
    m_main.Click(IDC_SHIFT_DOWN);
    EXPECT_EQ(m_main.Text(IDC_SHIFT_LABEL), L"PixelShift:1");
    for (int press = 0; press < 14; ++press) m_main.Click(IDC_SHIFT_UP);
    EXPECT_EQ(m_main.Text(IDC_SHIFT_LABEL), L"PixelShift:15");
    m_main.Click(IDC_SHIFT_UP);
    EXPECT_EQ(m_main.Text(IDC_SHIFT_LABEL), L"PixelShift:15");
    ASSERT_TRUE(m_session.Closes());
    EXPECT_EQ(BytesOf(m_session.Scaling(kScalingFile)), ScalingBytes(15, kUnitRanges));
}

TEST_F(ScaleControls, ThePixelShiftIsTheWidthOfASample) {
    for (int press = 0; press < 5; ++press) m_main.Click(IDC_SHIFT_UP);  // 8
    m_session.Host().SendRecord(kSecondRecord);
    ASSERT_TRUE(m_session.Shows(0, L"1780 /min"));
    m_session.Host().SendRecord(kSecondRecord);
    // The level stretch of the third record begins one pixel left of eight pixels from the right edge.
    const ChartOnScreen chart(m_main);
    const int row = chart.RowOf(1780, 0, 6000);
    for (int x = chart.PlotRight() - 8; x <= chart.PlotRight() - 1; ++x) {
        EXPECT_TRUE(Becomes([&] { return chart.Rows(x, kFirstTraceColour); }, std::vector<int>{row})) << x;
    }
}

}  // namespace
}  // namespace plotvane::test
