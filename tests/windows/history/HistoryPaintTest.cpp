// What stands on the screen in the window that looks back, pixel by pixel.
#include "tests/windows/history/HistoryWindow.h"

namespace plotvane {
namespace {

using HistoryPaintTest = test::HistoryWindow;

TEST_F(HistoryPaintTest, DrawsTheTraceInItsColourAcrossThePlot) {
    const Extent trace = ExtentOf(kTrace);
    EXPECT_EQ(trace.left, kPlotLeft);
    EXPECT_EQ(trace.right, PlotRight() - 1);
    EXPECT_EQ(trace.bottom - trace.top, 0);  // a constant value
}

TEST_F(HistoryPaintTest, ShowsAPeakOfOneSampleThatIsMadeWhileItIsOpen) {
    Add(90.0);
    for (int i = 0; i < 10; ++i) Add(50.0);
    m_window.SendMessage(WM_TIMER, 1);
    Paint();
    const Extent trace = ExtentOf(kTrace);
    EXPECT_GT(trace.bottom - trace.top, m_window.GetClientRect().Height() / 4);
}

// Without a paint message, and only where something has changed.
TEST_F(HistoryPaintTest, ShowsEachSampleAsIfItHadPaintedEverything) {
    Point(kPlotLeft + 30, 100);
    Paint();
    std::vector<std::uint32_t> before = Pixels();
    for (int i = 0; i < 20; ++i) {
        Add(i * 37 % 90);
        m_window.SendMessage(WM_TIMER, 1);
        const std::vector<std::uint32_t> shown = Pixels();
        EXPECT_NE(shown, before) << i;
        PaintFromNothing();
        before = Pixels();
        EXPECT_EQ(Difference(shown, before), "") << i;
    }
}

TEST_F(HistoryPaintTest, ShowsWhatIsNewAlsoWhereOnlyAPartIsToBePainted) {
    Add(90.0);
    const RECT corner{0, 0, 5, 5};
    ::InvalidateRect(m_window.m_hWnd, &corner, FALSE);
    m_window.UpdateWindow();
    const std::vector<std::uint32_t> shown = Pixels();
    PaintFromNothing();
    EXPECT_EQ(Difference(shown, Pixels()), "");
}

// Texts are drawn again no further than that.
TEST(TextFont, HasNoLetterWiderThanALineIsHigh) {
    const CFont font = CreateTextFont();
    CClientDC screen(nullptr);
    const Selected fontInDc(screen, font);
    const LONG height = screen.GetTextMetrics().tmHeight;
    for (int letter = ' '; letter < 256; ++letter) {
        const char text[] = {static_cast<char>(letter)};
        EXPECT_LE(screen.GetTextExtent({text, 1}).cx, height) << letter;
    }
}

}  // namespace
}  // namespace plotvane
