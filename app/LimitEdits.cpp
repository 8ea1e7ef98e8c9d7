#include "app/LimitEdits.h"

#include "base/Numbers.h"
#include "res/resource.h"

namespace plotvane {

int LimitEdits::WithFocus() const {
    const HWND focus = ::GetFocus();
    if (!focus) return 0;
    for (const int id : {IDC_SCALE_MIN, IDC_SCALE_MAX}) {
        if (focus == m_dialog.GetDlgItem(id)) return id;
    }
    return 0;
}

void LimitEdits::Take(int id) {
    const std::string typed = m_dialog.GetDlgItemText(id);
    if (id == IDC_SCALE_MIN) {
        m_selection.SetMinimum(typed);
    } else {
        m_selection.SetMaximum(typed);
    }
}

// Before the first value nothing stands in the edits.
void LimitEdits::PutBack() {
    if (!m_selection.ShowAgain()) m_dialog.SetDlgItemText(WithFocus(), "");
}

void LimitEdits::Type(const ScaleRange& limits) {
    if (!::IsWindowEnabled(m_dialog.GetDlgItem(IDC_SCALE_MAX))) return;
    Type(IDC_SCALE_MIN, limits.min);
    Type(IDC_SCALE_MAX, limits.max);
}

void LimitEdits::Type(int id, int limit) {
    std::string text;
    AppendDecimal(text, limit);
    m_dialog.SetDlgItemText(id, text);
    Take(id);
}

}  // namespace plotvane
