// A program that shows the main dialog's template with its controls and does nothing else. It uses the same
// framework and build options as plotvane.exe, so plotvane.exe cannot start faster or be smaller than this.
#include <windows.h>

#include <commctrl.h>

#include "framework/Dialog.h"
#include "framework/WinApp.h"
#include "res/resource.h"

namespace {

class BareApp : public CWinApp {
    BOOL InitInstance() override {
        const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_WIN95_CLASSES};
        ::InitCommonControlsEx(&controls);
        CDialog(IDD_MAIN).DoModal();
        return FALSE;
    }
};

BareApp theApp;

}  // namespace
