#include "tests/support/system/MessageStorm.h"

#include "res/resource.h"

namespace plotvane::test {

namespace {

constexpr int kBurst = 50;  // messages, and then a pause of a few milliseconds
constexpr DWORD kLongestPauseMs = 8;

constexpr int kRunButtons[] = {IDC_STOP, IDC_PAUSE, IDC_LOAD_LOG};
constexpr UINT kNotifications[] = {BN_CLICKED,   BN_CLICKED,  BN_CLICKED, BN_SETFOCUS,
                                   BN_KILLFOCUS, EN_SETFOCUS, EN_CHANGE,  EN_KILLFOCUS};
constexpr WPARAM kSystemCommands[] = {
    ID_SYSMENU_PREFERENCES, ID_SYSMENU_ABOUT, SC_MINIMIZE,   SC_MAXIMIZE, SC_RESTORE, SC_RESTORE, SC_KEYMENU,
    SC_MOUSEMENU,           SC_HOTKEY,        SC_NEXTWINDOW, SC_HSCROLL};
constexpr UINT kKeyMessages[] = {WM_KEYDOWN, WM_KEYUP, WM_SYSKEYDOWN, WM_SYSKEYUP, WM_CHAR};
constexpr WPARAM kKeys[] = {VK_TAB, VK_RETURN, VK_SPACE, VK_UP, VK_DOWN, VK_F10, VK_MENU, VK_APPS, '1', 'P'};
constexpr UINT kMouseMessages[] = {WM_MOUSEMOVE,     WM_LBUTTONDOWN,   WM_LBUTTONUP,   WM_RBUTTONDOWN,
                                   WM_RBUTTONUP,     WM_LBUTTONDBLCLK, WM_MOUSEWHEEL,  WM_CONTEXTMENU,
                                   WM_NCLBUTTONDOWN, WM_NCLBUTTONUP,   WM_NCMOUSEMOVE, WM_CAPTURECHANGED};
constexpr UINT kNotices[] = {WM_SIZE,         WM_MOVE,          WM_PAINT,        WM_ERASEBKGND,
                             WM_SETFOCUS,     WM_KILLFOCUS,     WM_ACTIVATE,     WM_ACTIVATEAPP,
                             WM_NCACTIVATE,   WM_SHOWWINDOW,    WM_ENABLE,       WM_SYSCOLORCHANGE,
                             WM_THEMECHANGED, WM_CANCELMODE,    WM_TIMER,        WM_CHILDACTIVATE,
                             WM_ENTERIDLE,    WM_DISPLAYCHANGE, WM_QUERYDRAGICON};
constexpr UINT kControlMessages[] = {BM_CLICK, BM_SETCHECK, BM_SETSTATE, EM_SETSEL, EM_UNDO,
                                     WM_CUT,   WM_PASTE,    WM_CLEAR,    WM_ENABLE};

}  // namespace

MessageStorm::MessageStorm(const RemoteWindow& main, unsigned seed) : m_main(main), m_random(seed) {
    for (HWND child = ::GetWindow(main.Get(), GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT)) {
        m_controls.emplace_back(child);
    }
}

void MessageStorm::Post(int count) {
    for (int posted = 1; posted <= count; ++posted) {
        const Message what = Any();
        what.to.Post(what.message, what.wParam, what.lParam);
        if (posted % kBurst == 0) ::Sleep(Pick(kLongestPauseMs));
    }
}

MessageStorm::Message MessageStorm::Any() {
    switch (Pick(6)) {
        case 0:
            return Command();
        case 1:
            return SystemCommand();
        case 2:
            return Key();
        case 3:
            return Mouse();
        case 4:
            return Notice();
        default:
            return ControlMessage();
    }
}

MessageStorm::Message MessageStorm::Command() {
    const int id = Pick(3) == 0 ? OneOf(kRunButtons) : ::GetDlgCtrlID(OneOf(m_controls).Get());
    return {m_main, WM_COMMAND, MAKEWPARAM(id, OneOf(kNotifications)),
            reinterpret_cast<LPARAM>(m_main.Control(id).Get())};
}

MessageStorm::Message MessageStorm::SystemCommand() {
    return {m_main, WM_SYSCOMMAND, OneOf(kSystemCommands), Pick(2) == 0 ? 0 : L' '};
}

MessageStorm::Message MessageStorm::Key() {
    constexpr LPARAM kWithAlt = 1 << 29;
    return {Pick(2) == 0 ? m_main : OneOf(m_controls), OneOf(kKeyMessages), OneOf(kKeys),
            1 | (Pick(2) == 0 ? 0 : kWithAlt)};
}

MessageStorm::Message MessageStorm::Mouse() {
    const RemoteWindow to = Pick(2) == 0 ? m_main : OneOf(m_controls);
    const UINT message = OneOf(kMouseMessages);
    // The parameter is a window, a part of the frame, or the buttons that are down.
    const WPARAM what = message == WM_CONTEXTMENU ? reinterpret_cast<WPARAM>(to.Get()) : Pick(HTHELP + 1);
    return {to, message, what, MAKELPARAM(Pick(900), Pick(700))};
}

MessageStorm::Message MessageStorm::Notice() {
    return {m_main, OneOf(kNotices), Pick(6), MAKELPARAM(Pick(1000), Pick(800))};
}

MessageStorm::Message MessageStorm::ControlMessage() {
    return {OneOf(m_controls), OneOf(kControlMessages), Pick(3), 0};
}

}  // namespace plotvane::test
