#include "framework/Dialog.h"

#include <exception>

BEGIN_MESSAGE_MAP(CDialog, CWnd)
    ON_COMMAND(IDOK, OnOK)
    ON_COMMAND(IDCANCEL, OnCancel)
END_MESSAGE_MAP()

INT_PTR CDialog::DoModal() {
    if (m_hWnd || m_running) return -1;  // one run at a time
    m_running = true;
    DialogTemplate dialog{m_templateId};
    dialog.KeepFirst(m_firstControls);
    const INT_PTR result = ::DialogBoxIndirectParamW(::GetModuleHandleW(nullptr), dialog.Get(), m_owner,
                                                     &DialogProc, reinterpret_cast<LPARAM>(this));
    m_running = false;
    return result;
}

void CDialog::EndDialog(INT_PTR result) {
    if (!m_hWnd || !m_running) return;
    m_running = false;
    ::EndDialog(m_hWnd, result);
}

void CDialog::CreateOtherControls(int lower) {
    const std::vector<TemplateControl> controls = DialogTemplate(m_templateId).Controls();
    for (std::size_t i = m_firstControls; i < controls.size(); ++i) CreateControl(controls[i], lower);
}

void CDialog::CreateControl(const TemplateControl& control, int lower) {
    RECT place{control.x, control.y, control.width, control.height};
    ::MapDialogRect(m_hWnd, &place);
    const HWND window = ::CreateWindowExW(
        control.exStyle | WS_EX_NOPARENTNOTIFY, control.windowClass.c_str(), control.text.c_str(),
        control.style | WS_CHILD, place.left, place.top + lower, place.right, place.bottom, m_hWnd,
        reinterpret_cast<HMENU>(INT_PTR{control.id}), ::GetModuleHandleW(nullptr), nullptr);
    ::SendMessageW(window, WM_SETFONT, static_cast<WPARAM>(SendMessage(WM_GETFONT)), FALSE);
    const bool isDefault = ::SendMessageW(window, WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON;
    if (isDefault) SendMessage(DM_SETDEFID, static_cast<WPARAM>(control.id));
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

// Windows asks this first and then does the default processing of dialogs. It takes nothing but the start:
// from then on the messages come by the window procedure of CWnd, and all that arrives here is what a handler
// left to the default.
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
