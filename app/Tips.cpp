#include "app/Tips.h"

#include <commctrl.h>

#include "framework/Text.h"

namespace plotvane {
namespace {

constexpr int kWidestTip = 400;  // pixels; longer lines are broken

TTTOOLINFOW ToolFor(HWND dialog, HWND control) {
    TTTOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_IDISHWND;
    tool.hwnd = dialog;
    tool.uId = reinterpret_cast<UINT_PTR>(control);
    return tool;
}

}  // namespace

// Disabled controls have tips too, although they get no mouse messages.
void Tips::TakeMouseMessage(UINT message) {
    POINT place;
    if (!::GetCursorPos(&place)) return;
    const POINT onScreen = place;
    ::ScreenToClient(m_dialog.m_hWnd, &place);
    HWND control = ::ChildWindowFromPointEx(m_dialog.m_hWnd, place, CWP_SKIPINVISIBLE | CWP_SKIPTRANSPARENT);
    if (!control) control = m_dialog.m_hWnd;
    if (control != m_control) ComeTo(control);
    if (!m_window) return;
    MSG heard{};
    heard.hwnd = control;
    heard.message = message;
    heard.pt = onScreen;
    ::MapWindowPoints(m_dialog.m_hWnd, control, &place, 1);
    heard.lParam = MAKELPARAM(place.x, place.y);
    ::SendMessageW(m_window, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&heard));
}

void Tips::ComeTo(HWND control) {
    const std::string text = control == m_dialog.m_hWnd ? "" : m_textOf(::GetDlgCtrlID(control));
    if (!m_window && (text.empty() || !Create())) return;
    TTTOOLINFOW tool = ToolFor(m_dialog.m_hWnd, m_control);
    ::SendMessageW(m_window, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    m_control = control;
    if (text.empty()) return;
    std::wstring wide = ToWide(text);
    tool = ToolFor(m_dialog.m_hWnd, control);
    tool.lpszText = wide.data();
    ::SendMessageW(m_window, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

bool Tips::Create() {
    m_window = ::CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX, 0, 0, 0, 0,
                                 m_dialog.m_hWnd, nullptr, ::GetModuleHandleW(nullptr), nullptr);
    if (m_window) ::SendMessageW(m_window, TTM_SETMAXTIPWIDTH, 0, kWidestTip);
    return m_window != nullptr;
}

}  // namespace plotvane
