#pragma once

#include <windows.h>

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
#include "history/HistoryWnd.h"
#include "history/TextFont.h"
#include "plot/chart/ChartPixels.h"
#include "tests/support/TempFolder.h"
#include "tests/windows/framework/TestWnd.h"
#include "tests/windows/support/DialogUser.h"

namespace plotvane::test {

// A window over a recording of a hundred samples of one trace, a sample a second, in its own colours.
class HistoryWindow : public ::testing::Test {
protected:
    HistoryWindow() {
        m_prefs.lineColor[0] = kTrace;
        m_prefs.backColor = kGround;
        CreateHidden(m_owner);
        m_recording.Begin("019");
        RecordedTraces traces;
        traces[0] = {true, 1, 0, false, "/min", "Speed", 0.0, 100.0};
        m_recording.BeginStretch(traces);
        for (int i = 0; i < 100; ++i) Add(50.0);
        EXPECT_TRUE(m_window.Open(m_owner.m_hWnd, 0));
        MovePointerAway();
        Paint();
    }
    ~HistoryWindow() override {
        ::SetKeyboardState(m_noKeys.data());
        m_window.DestroyWindow();
    }

    void Add(double value, std::uint16_t drawn = 1) {
        m_recording.Add(static_cast<double>(m_recording.End()), Recording::Values{value}, drawn);
    }
    void Paint() {
        DispatchAll();
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
    void MovePointerAway() {
        constexpr POINT kAway{0, 0};
        ::SetCursorPos(kAway.x, kAway.y);
        EXPECT_NE(::WindowFromPoint(kAway), m_window.m_hWnd);
    }
    // Moves the pointer there.
    void Point(int x, int y) {
        POINT place{x, y};
        ::ClientToScreen(m_window.m_hWnd, &place);
        ::SetCursorPos(place.x, place.y);
        Mouse(WM_MOUSEMOVE, x, y);
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
    void Save(bool samples, const std::function<void(DialogUser&)>& answer) {
        DialogUser user(samples ? L"Save the samples" : L"Save the picture");
        const std::jthread person([&] { user.Follow(answer); });
        Press('S', true, samples);
    }
    void SaveAs(const std::filesystem::path& path, bool samples) {
        Save(samples, [&](const DialogUser& user) {
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
        return std::ranges::count(BytesOf(file), '\n');
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
    // Where two pictures of the window differ.
    std::string Difference(const std::vector<std::uint32_t>& one,
                           const std::vector<std::uint32_t>& other) const {
        const auto width = static_cast<std::size_t>(m_window.GetClientRect().Width());
        std::string places;
        for (std::size_t i = 0; i < one.size() && places.size() < 300; ++i) {
            if (one[i] != other[i])
                places += " " + std::to_string(i % width) + "," + std::to_string(i / width);
        }
        return places;
    }
    // Nothing of a picture on another ground can stay.
    void PaintFromNothing() {
        for (const Colour ground : {kGround + 1, kGround}) {
            m_prefs.backColor = ground;
            Paint();
        }
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

}  // namespace plotvane::test
