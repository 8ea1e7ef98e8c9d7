#pragma once

#include <string>

#include "framework/Wnd.h"

// A control that tells screen readers the name which the window around it has for it: see
// CWnd::AccessibleNameOf. All that it is and does otherwise stays as the system has it. Nothing is loaded and
// no name is made before somebody asks for one.
class CNamedControl : public CWnd {
public:
    // A control inside this one, such as the edit of a combo box, has this one's name.
    std::string AccessibleNameOf(int) const override { return AccessibleName(); }

private:
    std::string AccessibleName() const;
    LRESULT OnGetObject(WPARAM flags, LPARAM object);
    DECLARE_MESSAGE_MAP()
};
