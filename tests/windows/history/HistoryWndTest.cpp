#include "history/HistoryWnd.h"

#include "tests/windows/history/HistoryWindow.h"

namespace plotvane {
namespace {

using HistoryWndTest = test::HistoryWindow;

TEST_F(HistoryWndTest, HasTheIconsOfItsOwner) {
    const auto icon = reinterpret_cast<LPARAM>(::LoadIconW(nullptr, IDI_WARNING));
    m_owner.SendMessage(WM_SETICON, ICON_SMALL, icon);
    m_window.DestroyWindow();
    EXPECT_TRUE(m_window.Open(m_owner.m_hWnd, 0));
    EXPECT_EQ(IconOf(ICON_SMALL), icon);
    EXPECT_EQ(IconOf(ICON_BIG), 0);
}

TEST_F(HistoryWndTest, IsAResizableWindowOfItsOwnerThatNamesTheModule) {
    const auto style = static_cast<DWORD>(::GetWindowLongW(m_window.m_hWnd, GWL_STYLE));
    EXPECT_EQ(style & WS_OVERLAPPEDWINDOW, static_cast<DWORD>(WS_OVERLAPPEDWINDOW));
    EXPECT_EQ(::GetWindow(m_window.m_hWnd, GW_OWNER), m_owner.m_hWnd);
    EXPECT_EQ(m_window.GetWindowText(), "Plotvane - looking back - 019");
}

TEST_F(HistoryWndTest, HidesATraceByItsCheckMark) {
    Click(PlotRight() + 8 + 5, 8 + 6);
    EXPECT_EQ(ExtentOf(kTrace).left, -1);
    Click(PlotRight() + 8 + 5, 8 + 6);
    EXPECT_EQ(ExtentOf(kTrace).left, kPlotLeft);
}

TEST_F(HistoryWndTest, CopiesTheTableOfTheSampleUnderTheCursor) {
    Press(VK_HOME);
    Click(kPlotLeft, 100);
    Press('C', true, true);
    EXPECT_EQ(ClipboardText(), L"Name\tUnit\t0.00\r\nSpeed\t/min\t50\r\n");
}

TEST_F(HistoryWndTest, CopiesTheTableBetweenTwoCursors) {
    Press(VK_HOME);
    Click(kPlotLeft, 100);
    Click(PlotRight() - 1, 100, MK_SHIFT);
    Press('C', true, true);
    EXPECT_EQ(ClipboardText(),
              L"Name\tUnit\t0.00\t1:00.00\tDifference\tLowest\tMean\tHighest\r\n"
              L"Speed\t/min\t50\t50\t0\t50\t50\t50\r\n");
}

TEST_F(HistoryWndTest, DragsTheViewAndDoesNotTakeThatForAClick) {
    Press('0', true);
    Press(VK_ADD, true);
    Press(VK_HOME);
    Mouse(WM_LBUTTONDOWN, 400, 100, MK_LBUTTON);
    Mouse(WM_MOUSEMOVE, 300, 100, MK_LBUTTON);
    Mouse(WM_LBUTTONUP, 300, 100);
    Point(kPlotLeft, 100);
    Press('C', true, true);
    // Half of 99 seconds is in view.
    const int sample = static_cast<int>(100 * 49.5 / (PlotRight() - kPlotLeft));
    EXPECT_EQ(ClipboardText().substr(0, 14), L"Name\tUnit\t" + ToWide(std::to_string(sample) + ".00"));
}

TEST_F(HistoryWndTest, MovesAFixedCursorByAPixelAndBySamples) {
    Press('0', true);  // 99 seconds
    Click(kPlotLeft + 100, 100);
    const int atClick = CursorSecond();
    Press(VK_LEFT, true);
    EXPECT_EQ(CursorSecond(), atClick - 1);
    Press(VK_RIGHT);  // less than a sample wide
    EXPECT_EQ(CursorSecond(), atClick);
    Press(VK_RETURN);
    Point(kPlotLeft, 100);
    EXPECT_EQ(CursorSecond(), 0);
    Press(VK_RETURN);
    Point(PlotRight() - 1, 100);
    EXPECT_EQ(CursorSecond(), 0);
}

TEST_F(HistoryWndTest, ComparesByKeysAlone) {
    Press(VK_HOME);
    Press(VK_RETURN);  // the last in view
    const int last = CursorSecond();
    for (int step = 0; step < 3; ++step) Press(VK_LEFT, true, true);
    Press('C', true, true);
    EXPECT_NE(ClipboardText().find(L"Difference"), std::wstring::npos);
    EXPECT_EQ(FirstSecondOf(ClipboardText()), last - 3);
}

TEST_F(HistoryWndTest, TellsTheLastSampleIfThePointerHasLeftWhenItsMoveArrives) {
    Press('0', true);
    Point(kPlotLeft, 100);
    EXPECT_EQ(CursorSecond(), 0);
    MovePointerAway();
    Mouse(WM_MOUSEMOVE, kPlotLeft, 100);
    test::DispatchAll();
    EXPECT_EQ(CursorSecond(), 99);
}

TEST_F(HistoryWndTest, ZoomsAboutThePointerByTheWheel) {
    Press('0', true);
    const int x = kPlotLeft + (PlotRight() - kPlotLeft) / 4;
    Point(x, 100);
    const int pointed = CursorSecond();
    Wheel(5, x);
    EXPECT_NEAR(CursorSecond(), pointed, 1);
    Point(kPlotLeft, 100);
    // Three quarters of 0.8 to the fifth remain at the left.
    EXPECT_NEAR(CursorSecond(), pointed - 99 * 0.25 * 0.328, 1.5);
    Wheel(-20, kPlotLeft);
    EXPECT_EQ(CursorSecond(), 0);
}

TEST_F(HistoryWndTest, BringsATraceToTheFrontWithItsScale) {
    RecordedTraces traces;
    traces[0] = {true, 1, 0, false, "/min", "Speed", 0.0, 100.0};
    traces[1] = {true, 1, 1, false, "%", "Load", 0.0, 777.0};
    m_recording.BeginStretch(traces);
    for (int i = 0; i < 20; ++i) Add(50.0, 3);
    m_window.SendMessage(WM_TIMER, 1);
    Press(VK_END);
    EXPECT_EQ(ExtentOf(kTrace).bottom - ExtentOf(kTrace).top, 0);
    Click(PlotRight() + 60, EntryTop(1) + 6);  // its name
    EXPECT_EQ(ExtentOf(kTrace).left, -1) << "the others are faded";
    Click(PlotRight() + 60, EntryTop(1) + 6);
    EXPECT_NE(ExtentOf(kTrace).left, -1);
    Press(VK_DOWN);
    EXPECT_NE(ExtentOf(kTrace).left, -1) << "it is in front itself";
    Press(VK_DOWN);
    EXPECT_EQ(ExtentOf(kTrace).left, -1);
}

TEST_F(HistoryWndTest, SavesThePictureThatIsShown) {
    const test::TempFolder folder;
    Press('0', true);
    SaveAs(folder / "drive.png", false);
    EXPECT_EQ(test::BytesOf(folder / "drive.png").substr(1, 3), "PNG");
}

TEST_F(HistoryWndTest, SavesTheSamplesInViewOrBetweenTheCursors) {
    const test::TempFolder folder;
    Press('0', true);
    SaveAs(folder / "all.csv", true);
    FinishSaving();
    EXPECT_EQ(LinesOf(folder / "all.csv"), 1 + 100);
    EXPECT_EQ(test::BytesOf(folder / "all.csv").substr(0, 33), "Time (s),Speed (/min)\r\n0.000,50\r\n");

    Click(PlotRight() - 1, 100);
    Press(VK_LEFT, true, true);
    SaveAs(folder / "two.csv", true);
    FinishSaving();
    EXPECT_EQ(test::BytesOf(folder / "two.csv"), "Time (s),Speed (/min)\r\n98.000,50\r\n99.000,50\r\n");
}

TEST_F(HistoryWndTest, ALongSaveIsCancelledByEscAndLeavesNothing) {
    const test::TempFolder folder;
    for (int i = 0; i < 50'000; ++i) Add(50.0);
    Press('0', true);
    SaveAs(folder / "all.csv", true);
    m_window.SendMessage(WM_TIMER, kSaveTimer);
    EXPECT_FALSE(std::filesystem::exists(folder / "all.csv"));
    EXPECT_FALSE(std::filesystem::is_empty(folder.Path()));
    Press(VK_ESCAPE);
    ASSERT_NE(m_window.m_hWnd, nullptr);
    m_window.SendMessage(WM_TIMER, kSaveTimer);
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
    Press(VK_ESCAPE);
    EXPECT_EQ(m_window.m_hWnd, nullptr);
}

TEST_F(HistoryWndTest, AWindowThatIsClosedGivesItsSaveUp) {
    const test::TempFolder folder;
    for (int i = 0; i < 50'000; ++i) Add(50.0);
    Press('0', true);
    SaveAs(folder / "all.csv", true);
    m_window.SendMessage(WM_TIMER, kSaveTimer);
    m_window.SendMessage(WM_CLOSE);
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
    EXPECT_TRUE(m_window.Open(m_owner.m_hWnd, 0));
}

TEST_F(HistoryWndTest, ADialogThatIsCancelledSavesNothing) {
    Save(true, [](const test::DialogUser&) {});  // it is cancelled
    Press(VK_ESCAPE);
    EXPECT_EQ(m_window.m_hWnd, nullptr) << "nothing was going on that Esc would have cancelled";
}

TEST_F(HistoryWndTest, CopiesThePicture) {
    Press('C', true);
    EXPECT_TRUE(::IsClipboardFormatAvailable(CF_DIB));
    EXPECT_FALSE(::IsClipboardFormatAvailable(CF_UNICODETEXT));
}

TEST_F(HistoryWndTest, ClosesByEscAndOpensAgain) {
    const int objects = LivingGdiObjects();
    Press(VK_ESCAPE);
    EXPECT_EQ(m_window.m_hWnd, nullptr);
    EXPECT_TRUE(m_window.Open(m_owner.m_hWnd, 0));
    Paint();
    EXPECT_EQ(LivingGdiObjects(), objects);
    EXPECT_EQ(ExtentOf(kTrace).left, kPlotLeft);
}

TEST_F(HistoryWndTest, StaysWholeWhereNothingIsRecordedOrItIsTiny) {
    m_recording.Begin("020");
    m_window.SendMessage(WM_TIMER, 1);
    Paint();
    EXPECT_EQ(m_window.GetWindowText(), "Plotvane - looking back - 020");
    EXPECT_EQ(ExtentOf(kTrace).left, -1);
    for (const WPARAM key : {VK_HOME, VK_END, VK_LEFT, VK_PRIOR, VK_UP, VK_DOWN, VK_SPACE}) Press(key);
    Click(100, 100);
    m_window.MoveWindow(CRect(0, 0, 130, 40));
    Add(1.0);
    Paint();
    Click(5, 5);
    EXPECT_NE(m_window.m_hWnd, nullptr);
}

}  // namespace
}  // namespace plotvane
