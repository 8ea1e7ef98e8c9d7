#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "framework/Wnd.h"

// Names for screen readers of controls that have no text which says what they are for. All that such a
// control is and does otherwise stays as the system has it. Nothing is loaded and no name is made before
// somebody asks for one.
class AccessibleNames {
public:
    // Gives the name of a control by its id, in Windows-1252; if it is empty, the control keeps the system's
    // name.
    using NameOf = std::function<std::string(int control)>;

    explicit AccessibleNames(NameOf nameOf);
    ~AccessibleNames();

    // For controls of a dialog, by id, which have no other object of CWnd. Those that do not exist are left
    // out.
    void Give(const CWnd& dialog, std::span<const int> controls);

private:
    class Control;

    const NameOf m_nameOf;
    std::vector<std::unique_ptr<Control>> m_controls;
};
