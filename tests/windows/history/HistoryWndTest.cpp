#include "history/HistoryWnd.h"

#include <dlgs.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "framework/Dc.h"
#include "framework/Text.h"
#include "history/TextFont.h"
#include "plot/chart/ChartPixels.h"
#include "tests/support/TempFolder.h"
#include "tests/windows/framework/TestWnd.h"
#include "tests/windows/support/DialogUser.h"

namespace plotvane {
namespace {

// A window over a recording of a hundred samples of one trace, a sample a second, in its own colours.
class HistoryWndTest : public testing::Test {
protected:
    HistoryWndTest() {
        m_prefs.lineColor[0] = kTrace;
        m_prefs.backColor = kGround;
        test::CreateHidden(m_owner);
        m_recording.Begin("019");
        RecordedTraces traces;
        traces[0] = {true, 1, 0, false, "/min", "Speed", 0.0, 100.0};
        m_recording.BeginStretch(traces);
        for (int i = 0; i < 100; ++i) Add(50.0);
        EXPECT_TRUE(m_window.Open(m_owner.m_hWnd, 0));
        Paint();
    }
    ~HistoryWndTest() override {
        ::SetKeyboardState(m_noKeys.data());
        m_window.DestroyWindow();
    }

    void Add(double value, std::uint16_t drawn = 1) {
        m_recording.Add(static_cast<double>(m_recording.End()), Recording::Values{value}, drawn);
    }
    void Paint() {
        test::DispatchAll();
        m_window.Invalidate();
        m_window.UpdateWindow();
    }
    void Press(WPARAM key, bool control = false, bool shift = false) {
        std::array<BYTE, 256> keys{};
        if (control) keys[VK_CONTROL] = 0x80;
        if (shift) keys[VK_SHIFT] = 0x80;
        ::SetKeyboardState(keys.data());
        m_window.SendMessage(WM_KEYDOWN, key);
        if (m_window.m_hWnd) Paint();
    }
    void Mouse(UINT message, int x, int y, WPARAM keys = 0) {
        m_window.SendMessage(message, keys, MAKELPARAM(x, y));
    }
    void Click(int x, int y, WPARAM keys = 0) {
        Mouse(WM_LBUTTONDOWN, x, y, keys | MK_LBUTTON);
        Mouse(WM_LBUTTONUP, x, y, keys);
        Paint();
    }

    void Wheel(int notches, int x) {
        POINT place{x, 100};
        ::ClientToScreen(m_window.m_hWnd, &place);
        m_window.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, notches * WHEEL_DELTA),
                             MAKELPARAM(place.x, place.y));
        Paint();
    }

    // The time under the cursor, by the table.
    int CursorSecond() {
        Press('C', true, true);
        return FirstSecondOf(ClipboardText());
    }
    // The first time in the head of a table: after "Name", "Unit" and two tabs, as "59.00" or "1:00.00".
    static int FirstSecondOf(const std::wstring& table) {
        std::size_t end = 0;
        const std::wstring time = table.substr(10);
        const int first = std::stoi(time, &end);
        return time[end] == L':' ? 60 * first + std::stoi(time.substr(end + 1)) : first;
    }

    // By size: ICON_SMALL or ICON_BIG.
    LRESULT IconOf(WPARAM size) const { return m_window.SendMessage(WM_GETICON, size); }

    // In an entry of three lines.
    int EntryTop(int entry) const {
        const CFont font = CreateTextFont();
        CClientDC screen(nullptr);
        const Selected fontInDc(screen, font);
        return 8 + entry * (3 * static_cast<int>(screen.GetTextMetrics().tmHeight) + 6);
    }

    // Presses Ctrl+S or Ctrl+Shift+S, while somebody sits in front of the dialog.
    void Save(bool samples, const std::function<void(test::DialogUser&)>& answer) {
        test::DialogUser user(samples ? L"Save the samples" : L"Save the picture");
        const std::jthread person([&] { user.Follow(answer); });
        Press('S', true, samples);
    }
    void SaveAs(const std::filesystem::path& path, bool samples) {
        Save(samples, [&](const test::DialogUser& user) {
            const HWND name = user.Control(user.Control(cmb13) ? cmb13 : edt1);
            ::SendMessageW(name, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
            user.Click(IDOK);
            user.Ends();
        });
    }
    void FinishSaving() {
        for (int i = 0; i < 100; ++i) m_window.SendMessage(WM_TIMER, kSaveTimer);
    }
    static std::ptrdiff_t LinesOf(const std::filesystem::path& file) {
        return std::ranges::count(test::BytesOf(file), '\n');
    }

    // What stands on the screen, row by row, as 0x00RRGGBB.
    std::vector<std::uint32_t> Pixels() const {
        const CRect client = m_window.GetClientRect();
        const Picture shown(client.Width(), client.Height());
        const CClientDC window(m_window.m_hWnd);
        ::BitBlt(shown.Dc(), 0, 0, client.Width(), client.Height(), window, 0, 0, SRCCOPY);
        std::vector<std::uint32_t> pixels(shown.Pixels().begin(), shown.Pixels().end());
        for (std::uint32_t& pixel : pixels) pixel &= 0xFFFFFF;
        return pixels;
    }
    // A window of another size begins a picture of its own.
    void PaintFromNothing() {
        const CRect place = m_window.GetWindowRect();
        for (const int wider : {20, 0})
            m_window.MoveWindow({place.left, place.top, place.right + wider, place.bottom});
        Paint();
    }

    // Where on the plot the colour is, in pixels of the window; -1 for nowhere.
    struct Extent {
        int left = -1;
        int right = -1;
        int top = -1;
        int bottom = -1;
    };
    Extent ExtentOf(COLORREF colour) const {
        const CRect client = m_window.GetClientRect();
        const std::vector<std::uint32_t> pixels = Pixels();
        Extent extent;
        for (int x = kPlotLeft; x < PlotRight(); ++x) {
            for (int y = 0; y < client.Height(); ++y) {
                if (pixels[static_cast<std::size_t>(y * client.Width() + x)] != PixelOf(colour)) continue;
                if (extent.left < 0) extent.left = x;
                extent.right = x;
                if (extent.top < 0 || y < extent.top) extent.top = y;
                extent.bottom = std::max(extent.bottom, y);
            }
        }
        return extent;
    }
    // Right of the plot is the list, left of it the scale, which has the trace's colour too.
    int PlotRight() const { return m_window.GetClientRect().Width() - 258; }

    std::wstring ClipboardText() const {
        if (!::OpenClipboard(m_window.m_hWnd)) return L"(cannot be opened)";
        const HANDLE data = ::GetClipboardData(CF_UNICODETEXT);
        const std::wstring text = data ? static_cast<const wchar_t*>(::GlobalLock(data)) : L"(no text)";
        if (data) ::GlobalUnlock(data);
        ::CloseClipboard();
        return text;
    }

    static constexpr int kPlotLeft = 64;
    static constexpr WPARAM kSaveTimer = 2;
    static constexpr Colour kTrace = 0x10F0A0;
    static constexpr Colour kGround = 0x281400;

    Prefs m_prefs;
    Recording m_recording;
    CWnd m_owner;
    CHistoryWnd m_window{m_recording, m_prefs};
    std::array<BYTE, 256> m_noKeys{};
};

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

TEST_F(HistoryWndTest, DrawsTheTraceInItsColourAcrossThePlot) {
    const Extent trace = ExtentOf(kTrace);
    EXPECT_EQ(trace.left, kPlotLeft);
    EXPECT_EQ(trace.right, PlotRight() - 1);
    EXPECT_EQ(trace.bottom - trace.top, 0);  // a constant value
}

TEST_F(HistoryWndTest, ShowsAPeakOfOneSampleThatIsMadeWhileItIsOpen) {
    Add(90.0);
    for (int i = 0; i < 10; ++i) Add(50.0);
    m_window.SendMessage(WM_TIMER, 1);
    Paint();
    const Extent trace = ExtentOf(kTrace);
    EXPECT_GT(trace.bottom - trace.top, m_window.GetClientRect().Height() / 4);
}

// Without a paint message, and only where something has changed.
TEST_F(HistoryWndTest, ShowsEachSampleAsIfItHadPaintedEverything) {
    Mouse(WM_MOUSEMOVE, kPlotLeft + 30, 100);
    Paint();
    std::vector<std::uint32_t> before = Pixels();
    for (int i = 0; i < 20; ++i) {
        Add(i * 37 % 90);
        m_window.SendMessage(WM_TIMER, 1);
        const std::vector<std::uint32_t> shown = Pixels();
        EXPECT_NE(shown, before) << i;
        PaintFromNothing();
        before = Pixels();
        EXPECT_EQ(shown, before) << i;
    }
}

TEST_F(HistoryWndTest, ShowsWhatIsNewAlsoWhereOnlyAPartIsToBePainted) {
    Add(90.0);
    const RECT corner{0, 0, 5, 5};
    ::InvalidateRect(m_window.m_hWnd, &corner, FALSE);
    m_window.UpdateWindow();
    const std::vector<std::uint32_t> shown = Pixels();
    PaintFromNothing();
    EXPECT_EQ(shown, Pixels());
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
    Mouse(WM_MOUSEMOVE, kPlotLeft, 100);
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
    Mouse(WM_MOUSEMOVE, kPlotLeft, 100);
    EXPECT_EQ(CursorSecond(), 0);
    Press(VK_RETURN);
    Mouse(WM_MOUSEMOVE, PlotRight() - 1, 100);
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

TEST_F(HistoryWndTest, ZoomsAboutThePointerByTheWheel) {
    Press('0', true);
    const int x = kPlotLeft + (PlotRight() - kPlotLeft) / 4;
    Mouse(WM_MOUSEMOVE, x, 100);
    const int pointed = CursorSecond();
    Wheel(5, x);
    EXPECT_NEAR(CursorSecond(), pointed, 1);
    Mouse(WM_MOUSEMOVE, kPlotLeft, 100);
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
