#include "framework/DataExchange.h"

void DDX_Text(CDataExchange* exchange, int id, std::string& text) {
    std::string shown = exchange->m_dialog.GetDlgItemText(id);
    if (exchange->m_bSaveAndValidate) {
        text = std::move(shown);
    } else if (shown != text) {
        exchange->m_dialog.SetDlgItemText(id, text);
    }
}

void DDX_Check(CDataExchange* exchange, int id, int& checked) {
    if (exchange->m_bSaveAndValidate) {
        checked = exchange->m_dialog.IsDlgButtonChecked(id) ? 1 : 0;
    } else {
        exchange->m_dialog.CheckDlgButton(id, checked != 0);
    }
}
