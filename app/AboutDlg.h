#pragma once

#include "framework/Dialog.h"

namespace plotvane {

// Names the program, its host and its version.
class CAboutDlg : public CDialog {
public:
    explicit CAboutDlg(HWND owner);

protected:
    BOOL OnInitDialog() override;
};

}  // namespace plotvane
