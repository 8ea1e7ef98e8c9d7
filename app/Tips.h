#pragma once

#include <functional>
#include <string>

#include "framework/Wnd.h"

namespace plotvane {

// Tips over the controls of a dialog. Nothing is made before the pointer first moves over one that has a tip.
// A text is made when the pointer comes to its control, so tips cost nothing for each sample.
class Tips {
public:
    // The dialog must outlive this object. `textOf` gives the tip of a control by its id: lines, or nothing.
    Tips(CWnd& dialog, std::function<std::string(int)> textOf)
        : m_dialog(dialog), m_textOf(std::move(textOf)) {}

    // Call it for each mouse message that WM_SETCURSOR reports to the dialog.
    void TakeMouseMessage(UINT message);

private:
    void ComeTo(HWND control);
    bool Create();

    CWnd& m_dialog;
    const std::function<std::string(int)> m_textOf;
    HWND m_window = nullptr;   // owned by the dialog's window, and destroyed with it
    HWND m_control = nullptr;  // the control that the tip is for
};

}  // namespace plotvane
