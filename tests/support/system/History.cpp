#include "tests/support/system/History.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "res/resource.h"
#include "tests/support/system/Await.h"
#include "tests/support/system/Clipboard.h"
#include "tests/support/system/Keyboard.h"
#include "tests/support/system/PressUntil.h"

namespace plotvane::test {
namespace {

constexpr std::wstring_view kTitle = L"Plotvane - looking back";
constexpr int kRightOfPlot = 258;  // the list and its margin
constexpr COLORREF kFrame = 0xFFFFFF;

void ClearClipboard() {
    if (!::OpenClipboard(nullptr)) return;
    ::EmptyClipboard();
    ::CloseClipboard();
}

// The window with the focus in the thread of another one.
HWND FocusOf(const RemoteWindow& window) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    ::GetGUIThreadInfo(::GetWindowThreadProcessId(window.Get(), nullptr), &info);
    return ::GetForegroundWindow() == window.Get() ? info.hwndFocus : nullptr;
}

}  // namespace

void DoubleClickChart(const RemoteWindow& main) {
    const RECT chart = main.Control(IDC_CHART).ScreenRect();
    ::SetCursorPos((chart.left + chart.right) / 2, (chart.top + chart.bottom) / 2);
    for (int click = 0; click < 2; ++click) {
        ::mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
        ::mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
    }
}

RemoteWindow FindHistory(const RemoteWindow& main) {
    for (const RemoteWindow& window : WindowsOf(main.ProcessId())) {
        if (window.Text().starts_with(kTitle)) return window;
    }
    return {};
}

RemoteWindow OpenedHistory(const RemoteWindow& main) {
    RemoteWindow history;
    EXPECT_TRUE(Becomes([&] { return (history = FindHistory(main)).Exists(); }, true));
    return history;
}

RemoteWindow OpenHistory(const RemoteWindow& main) {
    DoubleClickChart(main);
    return OpenedHistory(main);
}

::testing::AssertionResult GiveKeyboard(const RemoteWindow& history) {
    return Becomes(
        [&] {
            if (::GetForegroundWindow() != history.Get()) ::SetForegroundWindow(history.Get());
            return FocusOf(history);
        },
        history.Get());
}

std::wstring TableOf(const RemoteWindow& history) {
    ClearClipboard();
    const DWORD before = ::GetClipboardSequenceNumber();
    // The program could not have the clipboard while this looks at it.
    EXPECT_TRUE(PressUntil([&] { return GiveKeyboard(history); }, {'C', true, true},
                           [&] { return ::GetClipboardSequenceNumber() != before; }));
    std::wstring table;
    EXPECT_TRUE(Becomes([&] { return (table = ClipboardText()).empty(); }, false));
    return table;
}

// The frame lies just outside of the plot.
HistoryPlot::HistoryPlot(const RemoteWindow& history)
    : m_client(PictureOf(history.ClientScreenRect())),
      m_columns(std::max(m_client.width - kRightOfPlot - kLeft, 0)),
      m_rows(0) {
    while (kTop + m_rows + 1 < m_client.height && m_client.At(kLeft - 1, kTop + m_rows + 1) == kFrame)
        ++m_rows;
}

int HistoryPlot::RowOf(double value, double lower, double upper) const {
    const int last = m_rows - 1;
    return last - static_cast<int>((value - lower) * last / (upper - lower));
}

std::vector<int> HistoryPlot::Rows(int column, COLORREF colour) const {
    std::vector<int> rows;
    for (int row = 0; row < m_rows; ++row) {
        if (m_client.At(kLeft + column, kTop + row) == colour) rows.push_back(row);
    }
    return rows;
}

std::vector<std::pair<int, int>> HistoryPlot::GapsOf(COLORREF colour) const {
    std::vector<std::pair<int, int>> gaps;
    for (int column = 0; column < m_columns; ++column) {
        if (!Rows(column, colour).empty()) continue;
        if (gaps.empty() || gaps.back().second != column - 1) gaps.emplace_back(column, column);
        gaps.back().second = column;
    }
    return gaps;
}

}  // namespace plotvane::test
