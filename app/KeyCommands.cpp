#include "app/KeyCommands.h"

#include <algorithm>

#include "app/AboutDlg.h"
#include "app/KeyRules.h"
#include "history/HistoryWnd.h"
#include "res/resource.h"
#include "scaling/PrefsDlg.h"

namespace plotvane {
namespace {

std::vector<ACCEL> LoadTable() {
    const HACCEL table = ::LoadAcceleratorsW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDR_KEYS));
    std::vector<ACCEL> keys(static_cast<std::size_t>(::CopyAcceleratorTableW(table, nullptr, 0)));
    ::CopyAcceleratorTableW(table, keys.data(), static_cast<int>(keys.size()));
    return keys;
}

bool IsDown(int key) {
    return ::GetKeyState(key) < 0;
}

bool IsHeldDown(const MSG& message) {
    return HIWORD(message.lParam) & KF_REPEAT;
}

template <class Window>
bool Is(HWND window) {
    return dynamic_cast<Window*>(CWnd::FromHandle(window)) != nullptr;
}

}  // namespace

// If no window has the focus, Windows sends keys as WM_SYSKEYDOWN, as it does with Alt.
bool KeyCommands::Take(const MSG& message) {
    if (message.message != WM_KEYDOWN && message.message != WM_SYSKEYDOWN) return false;
    if (TakesEscOrEnter(message)) return true;
    const int command = CommandOf(message.wParam);
    if (!command) return false;
    if (command != ID_KEY_MANUAL && !IsOfMainWindow(::GetAncestor(message.hwnd, GA_ROOT))) return false;
    if (IsKeptByEdit(message.hwnd, command)) return false;
    if (IsHeldDown(message) && !RepeatsWhileHeld(command)) return true;
    m_dialog.SendMessage(WM_COMMAND, MAKEWPARAM(command, kFromKeyTable));
    return true;
}

int KeyCommands::CommandOf(WPARAM key) {
    if (m_table.empty()) m_table = LoadTable();
    const int held =
        (IsDown(VK_SHIFT) ? FSHIFT : 0) | (IsDown(VK_CONTROL) ? FCONTROL : 0) | (IsDown(VK_MENU) ? FALT : 0);
    constexpr int kModifiers = FSHIFT | FCONTROL | FALT;
    const auto found = std::ranges::find_if(
        m_table, [&](const ACCEL& entry) { return entry.key == key && (entry.fVirt & kModifiers) == held; });
    return found == m_table.end() ? 0 : found->cmd;
}

bool KeyCommands::IsOfMainWindow(HWND front) const {
    return front == m_dialog.m_hWnd || Is<CMeterWnd>(front);
}

// As a dialog does it, Esc and Ctrl+Pause would end the program, and Enter would press Load log file.
bool KeyCommands::TakesEscOrEnter(const MSG& message) {
    const bool isHere = message.hwnd == m_dialog.m_hWnd || ::IsChild(m_dialog.m_hWnd, message.hwnd);
    if (!isHere || message.message != WM_KEYDOWN) return false;
    const int limit = m_limits.WithFocus();
    switch (message.wParam) {
        case VK_ESCAPE:
        case VK_CANCEL:
            if (limit) m_limits.PutBack();
            return true;
        case VK_RETURN:
            if (!limit) return false;
            m_limits.Take(limit);
            m_limits.SelectText(limit);
            return true;
        default:
            return false;
    }
}

bool KeyCommands::IsKeptByEdit(HWND window, int command) {
    const bool isEdit = ::SendMessageW(window, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL;
    if (!isEdit) return false;
    const auto selection = static_cast<DWORD>(::SendMessageW(window, EM_GETSEL, 0, 0));
    return IsKeyOfEdit(command, LOWORD(selection) != HIWORD(selection));
}

void KeyCommands::Run(int command) {
    switch (command) {
        case ID_KEY_SLOWER:
        case ID_KEY_FASTER:
            if (m_panel.OffersReplaySpeed()) Press(ButtonOfKey(command));
            break;
        case ID_KEY_STEP_ROW:
            m_acquisition.control.StepRow();
            break;
        case ID_KEY_PREVIOUS:
        case ID_KEY_NEXT:
            Press(ButtonOfKey(command));
            if (const int limit = m_limits.WithFocus()) m_limits.SelectText(limit);
            break;
        case ID_KEY_METER:
            OpenMeter();
            break;
        case ID_KEY_FIT:
            Fit();
            break;
        case ID_KEY_COPY:
            m_chart.Copy();
            break;
        case ID_KEY_SAVE_PICTURE:
            m_chart.Save();
            break;
        case ID_KEY_PREFERENCES:
            m_dialog.SendMessage(WM_SYSCOMMAND, ID_SYSMENU_PREFERENCES);
            break;
        default:
            if (CanPress(ButtonOfKey(command))) Press(ButtonOfKey(command));
            break;
    }
}

bool KeyCommands::CanPress(int button) const {
    const HWND window = m_dialog.GetDlgItem(button);
    return ::IsWindowVisible(window) && ::IsWindowEnabled(window);
}

// A click with the mouse would take the focus from the edit in which the user is typing, and the number would
// count. So it counts here too.
void KeyCommands::Press(int button) {
    if (const int limit = m_limits.WithFocus()) m_limits.Take(limit);
    m_dialog.SendMessage(WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
                         reinterpret_cast<LPARAM>(m_dialog.GetDlgItem(button)));
}

// As a right click on the colour square does.
void KeyCommands::OpenMeter() {
    const int slot = m_acquisition.loop.Selection().Slot();
    if (m_state.tenChannels || !m_panel.IsTraceShown(slot)) return;
    m_meters.OpenSlotMeter(slot, m_acquisition.module.Labels());
}

void KeyCommands::Fit() {
    const int slot = m_acquisition.loop.Selection().Slot();
    const auto limits = m_acquisition.loop.Seen().RangeAround(slot, m_acquisition.sample.slots[slot]);
    if (limits) m_limits.Type(*limits);
}

const char* KeyCommands::PageInFront() {
    const HWND front = ::GetActiveWindow();
    if (Is<CMeterWnd>(front)) return "meters";
    if (Is<CHistoryWnd>(front)) return "looking-back";
    if (Is<CPrefsDlg>(front)) return "preferences";
    if (Is<CAboutDlg>(front)) return "README";
    return "main-window";
}

}  // namespace plotvane
