#include "framework/AccessibleNames.h"

#include <utility>

void AccessibleNames::Give(const CWnd& dialog, std::span<const int> controls) {
    for (const int id : controls) {
        const HWND control = dialog.GetDlgItem(id);
        Give(control);
        Give(::GetWindow(control, GW_CHILD));
    }
}

void AccessibleNames::Give(HWND control) {
    auto named = std::make_unique<CNamedControl>();
    if (named->Attach(control)) m_controls.push_back(std::move(named));
}
