#include "framework/Dialog.h"

#include <exception>

BEGIN_MESSAGE_MAP(CDialog, CWnd)
    ON_COMMAND(IDOK, OnOK)
    ON_COMMAND(IDCANCEL, OnCancel)
END_MESSAGE_MAP()

INT_PTR CDialog::DoModal() {
    if (m_hWnd || m_running) return -1;  // one run at a time
    m_running = true;
    const INT_PTR result = ::DialogBoxParamW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(m_templateId),
                                             m_owner, &DialogProc, reinterpret_cast<LPARAM>(this));
    m_running = false;
    return result;
}

void CDialog::EndDialog(INT_PTR result) {
    if (!m_hWnd || !m_running) return;
    m_running = false;
    ::EndDialog(m_hWnd, result);
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

BOOL CDialog::Initialise(HWND window) {
    try {
        if (Attach(window)) return OnInitDialog();
    } catch (const std::exception& e) {
        TraceLine(e.what());
    } catch (...) {
        TraceLine("OnInitDialog threw something unknown.");
    }
    m_running = false;
    ::EndDialog(window, -1);
    return FALSE;
}
