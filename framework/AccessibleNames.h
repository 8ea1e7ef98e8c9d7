#pragma once

#include <memory>
#include <span>
#include <vector>

#include "framework/NamedControl.h"

// The controls of a dialog that have no object of CWnd but need a name for screen readers.
class AccessibleNames {
public:
    // From now on these controls have the names that the dialog gives them (CWnd::AccessibleNameOf), and so
    // has the edit in a combo box. Those that do not exist are left out.
    void Give(const CWnd& dialog, std::span<const int> controls);

private:
    void Give(HWND control);

    std::vector<std::unique_ptr<CNamedControl>> m_controls;
};
