#pragma once

#include <windows.h>

#include "framework/Wnd.h"
#include "link/RunControl.h"

namespace plotvane {

// Stop, Pause and Load log file, and the images on all push buttons of the main dialog.
class RunButtonControls : public RunButtons {
public:
    explicit RunButtonControls(CWnd& dialog) : m_dialog(dialog) {}

    // Once the dialog has its controls: every button gets its image, Stop and Pause are disabled.
    void SetUp();

    // RunButtons.
    void ShowStop(bool active) override;
    void ShowPause(PauseImage image) override;
    void ShowLoad(bool active) override;
    void EnableStop(bool enabled) override;
    void EnablePause(bool enabled) override;
    void EnableLoad(bool enabled) override;

private:
    void SetImage(int button, int icon);
    void Enable(int button, bool enabled);

    CWnd& m_dialog;
};

}  // namespace plotvane
