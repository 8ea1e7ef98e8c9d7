#include "framework/Dialog.h"

#include <exception>
#include <utility>

#include "framework/MessageLoop.h"

BEGIN_MESSAGE_MAP(CDialog, CWnd)
    ON_COMMAND(IDOK, OnOK)
    ON_COMMAND(IDCANCEL, OnCancel)
END_MESSAGE_MAP()

// Windows has a function that does all of this, but its loop asks nobody before it treats a key as a
// dialog's.
INT_PTR CDialog::DoModal() {
    if (m_hWnd || m_running) return -1;  // one run at a time
    m_running = true;
    m_shown = false;
    m_result = -1;
    DisableOwner();
    const HWND window = ::CreateDialogParamW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(m_templateId),
                                             m_owner, &DialogProc, reinterpret_cast<LPARAM>(this));
    if (window && m_running) {
        m_result = 0;
        RunUntilEnded();
    }
    EnableOwner();
    m_running = false;
    if (window) ::DestroyWindow(window);
    return m_result;
}

void CDialog::DisableOwner() {
    const HWND owner = m_owner ? ::GetAncestor(m_owner, GA_ROOT) : nullptr;
    if (!owner || !::IsWindowEnabled(owner)) return;
    ::EnableWindow(owner, FALSE);
    m_disabledOwner = owner;
}

void CDialog::EnableOwner() {
    if (m_disabledOwner) ::EnableWindow(std::exchange(m_disabledOwner, nullptr), TRUE);
}

void CDialog::RunUntilEnded() {
    MSG message;
    while (m_running && m_hWnd) {
        if (!::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            ShowOnce();
            TellOwnerThatItIsIdle();
            if (!m_running || !m_hWnd) return;
            ::GetMessageW(&message, nullptr, 0, 0);
        }
        if (message.message == WM_QUIT) return ::PostQuitMessage(static_cast<int>(message.wParam));
        HandleQueued(message);
        // Timers may come so fast that the queue is never empty. A key with Alt may open a menu, and the
        // window must be visible then.
        if (message.message == WM_TIMER || message.message == WM_SYSKEYDOWN) ShowOnce();
    }
}

// A handler may have shown the window itself, and its user may have given it another size since then.
void CDialog::ShowOnce() {
    if (m_shown || !m_running || !m_hWnd) return;
    m_shown = true;
    if (::IsWindowVisible(m_hWnd)) return;
    ShowWindow(SW_SHOWNORMAL);
    UpdateWindow();
}

void CDialog::TellOwnerThatItIsIdle() const {
    const HWND owner = ::GetWindow(m_hWnd, GW_OWNER);
    if (!owner || ::GetWindowLongPtrW(m_hWnd, GWL_STYLE) & DS_NOIDLEMSG) return;
    ::SendMessageW(owner, WM_ENTERIDLE, MSGF_DIALOGBOX, reinterpret_cast<LPARAM>(m_hWnd));
}

// The owner is enabled first: Windows would make another program's window the active one otherwise. The empty
// message wakes the loop, which may be waiting: this call may come from another program's message, and those
// do not end a wait.
void CDialog::EndDialog(INT_PTR result) {
    if (!m_hWnd || !m_running) return;
    m_running = false;
    m_result = result;
    const HWND owner = m_disabledOwner;
    const HWND anyOwner = ::GetWindow(m_hWnd, GW_OWNER);
    const bool isDisabledByAnother = !owner && anyOwner && !::IsWindowEnabled(anyOwner);
    EnableOwner();
    ::EndDialog(m_hWnd, result);
    if (isDisabledByAnother) ::EnableWindow(anyOwner, FALSE);  // the system has enabled it
    if (owner && m_hWnd && ::GetActiveWindow() == m_hWnd) ::SetActiveWindow(owner);
    if (m_hWnd) ::PostMessageW(m_hWnd, WM_NULL, 0, 0);
}

bool CDialog::IsDialogMessage(MSG& message) {
    return m_running && m_hWnd && ::IsWindowEnabled(m_hWnd) && ::IsDialogMessageW(m_hWnd, &message);
}

void CDialog::UpdateData(bool saveAndValidate) {
    if (!m_hWnd) return;
    CDataExchange exchange{*this, saveAndValidate};
    DoDataExchange(&exchange);
}

BOOL CDialog::OnInitDialog() {
    UpdateData(false);
    return TRUE;
}

void CDialog::DoDataExchange(CDataExchange*) {}

void CDialog::OnOK() {
    UpdateData();
    EndDialog(IDOK);
}

void CDialog::OnCancel() {
    EndDialog(IDCANCEL);
}

// Windows calls this before its own processing of a dialog's messages. Only WM_INITDIALOG matters here: after
// it the messages go to the window procedure of CWnd first, and what arrives here is what a handler left to
// the default.
INT_PTR CALLBACK CDialog::DialogProc(HWND window, UINT message, WPARAM, LPARAM lParam) {
    if (message != WM_INITDIALOG || FromHandle(window)) return FALSE;
    return reinterpret_cast<CDialog*>(lParam)->Initialise(window);
}

// After a failure DoModal finds that the dialog does not run, and destroys the window.
BOOL CDialog::Initialise(HWND window) {
    try {
        if (Attach(window)) return OnInitDialog();
    } catch (const std::exception& e) {
        TraceLine(e.what());
    } catch (...) {
        TraceLine("OnInitDialog threw something unknown.");
    }
    m_running = false;
    m_result = -1;
    return FALSE;
}
