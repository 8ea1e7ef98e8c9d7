#pragma once

#include "framework/DataExchange.h"
#include "framework/Wnd.h"

// A modal dialog from a template of the program's resources. Its controls exist when OnInitDialog is called.
class CDialog : public CWnd {
public:
    explicit CDialog(UINT templateId, HWND owner = nullptr) : m_templateId(templateId), m_owner(owner) {}

    // Runs the dialog until EndDialog and returns its result. The owner is disabled meanwhile. Returns -1 if
    // the dialog could not be created or OnInitDialog threw, and 0 if it ends in another way: its window is
    // destroyed, or the thread is asked to quit, which the loop outside hears too. Any handler may call it,
    // even one that another dialog's handler dispatches.
    INT_PTR DoModal();

    // Enables the owner and hides the window at once; DoModal returns when the handlers on the stack have
    // returned. The first result counts, so two handlers of which one dispatches the other may both close the
    // dialog.
    void EndDialog(INT_PTR result);

    // Deals with a message for the dialog or one of its controls as dialogs do. False, with nothing done, for
    // other windows' messages, and while the dialog is disabled or over.
    bool IsDialogMessage(MSG& message);

    // Calls DoDataExchange: from the controls to the members, or the other way. Without a window the members
    // stay as they are.
    void UpdateData(bool saveAndValidate = true);

protected:
    // Fills the controls from the members. TRUE: Windows sets the focus to the first control. FALSE: the
    // dialog has set it itself.
    virtual BOOL OnInitDialog();

    // Names the pairs of control and member with DDX_...
    virtual void DoDataExchange(CDataExchange* exchange);

    virtual void OnOK();      // Enter or IDOK: fills the members and ends
    virtual void OnCancel();  // Esc, the close box or IDCANCEL: ends

private:
    static INT_PTR CALLBACK DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    BOOL Initialise(HWND window);
    void DisableOwner();
    void EnableOwner();
    void RunUntilEnded();
    void ShowOnce();
    void TellOwnerThatItIsIdle() const;

    const UINT m_templateId;
    const HWND m_owner;
    HWND m_disabledOwner = nullptr;
    INT_PTR m_result = 0;
    bool m_running = false;
    bool m_shown = false;
    DECLARE_MESSAGE_MAP()
};
