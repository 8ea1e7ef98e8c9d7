#pragma once

#include <windows.h>

#include <map>

#include "framework/Gdi.h"
#include "framework/Wnd.h"
#include "link/RunButtons.h"

namespace plotvane {

// Stop, Pause and Load log file, and the images on all push buttons of the main dialog.
class RunButtonControls : public RunButtons {
public:
    explicit RunButtonControls(CWnd& dialog) : m_dialog(dialog) {}

    // Gives every button its image and shows the run buttons as at the start. Call it once the dialog has its
    // controls.
    void SetUp();

    // RunButtons.
    void Show(const RunButtonsLook& look) override;

private:
    void SetImage(int button, int icon);
    void Enable(int button, bool enabled);

    CWnd& m_dialog;
    std::map<int, CIcon> m_icons;  // by id; each is loaded when it is first shown
};

}  // namespace plotvane
