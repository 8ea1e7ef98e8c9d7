#include "tests/windows/support/DialogUser.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <atomic>
#include <utility>

#include "framework/Text.h"

namespace plotvane::test {
namespace {

constexpr ULONGLONG kPatienceMs = 10000;
constexpr wchar_t kDialogClass[] = L"#32770";  // of dialogs and of message boxes
constexpr int kBoxText = 0xFFFF;

constexpr UINT kMarker = WM_APP + 77;

std::atomic<int> g_dialogCount = 0;
std::atomic<int> g_markerCount = 0;

bool IsDialog(HWND window) {
    wchar_t name[16]{};
    ::GetClassNameW(window, name, static_cast<int>(std::size(name)));
    return std::wstring_view{name} == kDialogClass;
}

LRESULT CALLBACK CountDialogs(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HCBT_CREATEWND && IsDialog(reinterpret_cast<HWND>(wParam))) ++g_dialogCount;
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

LRESULT CALLBACK CountMarkers(int code, WPARAM wParam, LPARAM lParam) {
    const auto& message = *reinterpret_cast<const MSG*>(lParam);
    if (code == HC_ACTION && wParam == PM_REMOVE && message.message == kMarker) ++g_markerCount;
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

std::wstring WideTextOf(HWND window) {
    wchar_t text[512]{};
    ::SendMessageW(window, WM_GETTEXT, std::size(text), reinterpret_cast<LPARAM>(text));
    return text;
}

// The first dialog of the thread that `matches`.
HWND FindShownDialog(DWORD thread, const std::function<bool(HWND)>& matches) {
    struct Search {
        const std::function<bool(HWND)>& matches;
        HWND found;
    } search{matches, nullptr};
    const auto look = [](HWND window, LPARAM argument) -> BOOL {
        auto& wanted = *reinterpret_cast<Search*>(argument);
        if (!IsDialog(window) || !::IsWindowVisible(window) || !wanted.matches(window)) return TRUE;
        wanted.found = window;
        return FALSE;
    };
    ::EnumThreadWindows(thread, look, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

}  // namespace

DialogUser::DialogUser(std::wstring caption)
    : m_uiThread(::GetCurrentThreadId()), m_caption(std::move(caption)) {
    g_dialogCount = 0;
    m_dialogHook = ::SetWindowsHookExW(WH_CBT, &CountDialogs, nullptr, m_uiThread);
    m_messageHook = ::SetWindowsHookExW(WH_GETMESSAGE, &CountMarkers, nullptr, m_uiThread);
    EXPECT_TRUE(m_dialogHook && m_messageHook);
}

DialogUser::~DialogUser() {
    ::UnhookWindowsHookEx(m_dialogHook);
    ::UnhookWindowsHookEx(m_messageHook);
}

void DialogUser::Follow(const std::function<void(DialogUser&)>& script) {
    if (!WaitUntil("the dialog is shown", [&] { return (m_dialog = FindDialog()) != nullptr; })) return;
    if (IsAtRest()) script(*this);
    const auto isOver = [this] {
        if (const HWND box = ShownBox()) ::PostMessageW(box, WM_COMMAND, IDOK, 0);
        ::PostMessageW(m_dialog, WM_COMMAND, IDCANCEL, 0);
        return IsOver();
    };
    WaitUntil("the dialog can be cancelled", isOver);
}

HWND DialogUser::FindDialog() const {
    return FindShownDialog(m_uiThread, [this](HWND window) { return WideTextOf(window) == m_caption; });
}

HWND DialogUser::ShownBox() const {
    return FindShownDialog(m_uiThread, [this](HWND window) { return window != m_dialog; });
}

HWND DialogUser::Focus() const {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return ::GetGUIThreadInfo(m_uiThread, &info) ? info.hwndFocus : nullptr;
}

bool DialogUser::WaitUntil(const char* what, const std::function<bool()>& isSo) const {
    const ULONGLONG end = ::GetTickCount64() + kPatienceMs;
    while (!isSo()) {
        if (::GetTickCount64() > end) {
            ADD_FAILURE() << "this did not happen: " << what;
            return false;
        }
        ::Sleep(1);
    }
    return true;
}

std::string DialogUser::TextOf(int id) const {
    return ToBytes(WideTextOf(Control(id)));
}

bool DialogUser::IsChecked(int id) const {
    return Ask(id, BM_GETCHECK) == BST_CHECKED;
}

LRESULT DialogUser::Ask(int id, UINT message, WPARAM wParam, LPARAM lParam) const {
    return ::SendMessageW(Control(id), message, wParam, lParam);
}

int DialogUser::BoxCount() const {
    return g_dialogCount - 1;  // one is the dialog itself
}

void DialogUser::SetText(int id, std::string_view text) const {
    ::SendMessageW(Control(id), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(ToWide(text).c_str()));
}

// Posts the click, because it may show a box, and sending it would not return until the box is closed.
void DialogUser::Click(int id) const {
    ::PostMessageW(Control(id), BM_CLICK, 0, 0);
}

void DialogUser::GoTo(int id) const {
    ::PostMessageW(m_dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Control(id)), TRUE);
}

void DialogUser::Type(int id, std::string_view text) {
    GoTo(id);
    GetsFocus(id);
    for (const wchar_t character : ToWide(text)) ::PostMessageW(Control(id), WM_CHAR, character, 1);
    WaitUntil("the text stands there", [&] { return TextOf(id) == text; });
}

void DialogUser::Press(WORD key) const {
    ::PostMessageW(Focus(), WM_KEYDOWN, key, 1);
}

void DialogUser::Choose(int list, int line) const {
    Ask(list, CB_SETCURSEL, static_cast<WPARAM>(line));
    ::SendMessageW(m_dialog, WM_COMMAND, MAKEWPARAM(list, CBN_SELENDOK),
                   reinterpret_cast<LPARAM>(Control(list)));
}

void DialogUser::Slide(int trackbar, int position) const {
    Ask(trackbar, TBM_SETPOS, TRUE, position);
}

bool DialogUser::SeesBox(const Box& expected) const {
    HWND box = nullptr;
    if (!WaitUntil("a box is shown", [&] { return (box = ShownBox()) != nullptr; })) return false;
    const Box shown{ToBytes(WideTextOf(box)), ToBytes(WideTextOf(::GetDlgItem(box, kBoxText)))};
    EXPECT_EQ(shown.caption, expected.caption);
    EXPECT_EQ(shown.text, expected.text);
    EXPECT_FALSE(::IsWindowEnabled(m_dialog));
    ::PostMessageW(box, WM_COMMAND, IDOK, 0);
    WaitUntil("the box is gone", [&] { return !::IsWindow(box); });
    return shown == expected;
}

bool DialogUser::IsAtRest() const {
    // The marker arrives after everything posted before it. If a box is open then, the loop of the box takes
    // the marker, and the dialog is disabled.
    const int before = g_markerCount;
    ::PostMessageW(m_dialog, kMarker, 0, 0);
    if (!WaitUntil("the dialog takes its messages", [before] { return g_markerCount != before; }))
        return false;
    return ::IsWindowEnabled(m_dialog) != 0;
}

bool DialogUser::GetsFocus(int id) const {
    return WaitUntil("the control has the focus", [&] { return HasFocus(id); });
}

bool DialogUser::Ends() const {
    return WaitUntil("the dialog ends", [this] { return IsOver(); });
}

}  // namespace plotvane::test
