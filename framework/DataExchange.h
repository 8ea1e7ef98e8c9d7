#pragma once

#include <string>

#include "framework/Wnd.h"

// One exchange between the members of a dialog and its controls: to the members when saving, else to the
// controls.
class CDataExchange {
public:
    CDataExchange(CWnd& dialog, bool saveAndValidate)
        : m_dialog(dialog), m_bSaveAndValidate(saveAndValidate) {}

    CWnd& m_dialog;
    const bool m_bSaveAndValidate;
};

// The text of a control, in Windows-1252 bytes. A control that shows the text already is left alone, so that
// neither its caret nor its pixels change.
void DDX_Text(CDataExchange* exchange, int id, std::string& text);

// A check box: 1 checked, 0 not.
void DDX_Check(CDataExchange* exchange, int id, int& checked);
