#pragma once

#include <string>
#include <string_view>

#include "framework/Wnd.h"

namespace plotvane {

// The text of a control that only the program changes. Setting what it shows already costs a comparison,
// setting anything else a repaint: with every sample that is the dearest thing there is.
class ShownText {
public:
    void Show(CWnd& dialog, int id, std::string_view text) {
        if (m_known && text == m_text) return;
        m_text = text;
        m_known = true;
        dialog.SetDlgItemText(id, text);
    }

private:
    std::string m_text;
    bool m_known = false;
};

}  // namespace plotvane
