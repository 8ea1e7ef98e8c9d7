#include "tests/support/system/History.h"

#include <gtest/gtest.h>

#include <ranges>
#include <vector>

#include "res/resource.h"
#include "tests/support/system/Await.h"

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

void PressKeys(const RemoteWindow& window, std::initializer_list<WORD> keys) {
    ::SetForegroundWindow(window.Get());
    EXPECT_TRUE(Becomes([] { return ::GetForegroundWindow(); }, window.Get()));
    for (const WORD key : keys) ::keybd_event(static_cast<BYTE>(key), 0, 0, 0);
    for (const WORD key : std::vector<WORD>(std::rbegin(keys), std::rend(keys)))
        ::keybd_event(static_cast<BYTE>(key), 0, KEYEVENTF_KEYUP, 0);
}

std::wstring TableOf(const RemoteWindow& history) {
    ClearClipboard();
    PressKeys(history, {VK_CONTROL, VK_SHIFT, 'C'});
    std::wstring table;
    EXPECT_TRUE(Becomes([&] { return (table = ClipboardText()).empty(); }, false));
    return table;
}

}  // namespace plotvane::test
