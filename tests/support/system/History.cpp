#include "tests/support/system/History.h"

#include <gtest/gtest.h>

#include "res/resource.h"
#include "tests/support/system/Await.h"
#include "tests/support/system/Keyboard.h"

namespace plotvane::test {
namespace {

constexpr std::wstring_view kTitle = L"Plotvane - looking back";

std::wstring ClipboardText() {
    std::wstring text;
    if (!::OpenClipboard(nullptr)) return text;
    if (const HANDLE data = ::GetClipboardData(CF_UNICODETEXT)) {
        text = static_cast<const wchar_t*>(::GlobalLock(data));
        ::GlobalUnlock(data);
    }
    ::CloseClipboard();
    return text;
}

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
    EXPECT_TRUE(GiveKeyboard(history));
    PressKey({'C', true, true});
    std::wstring table;
    EXPECT_TRUE(Becomes([&] { return (table = ClipboardText()).empty(); }, false));
    return table;
}

}  // namespace plotvane::test
