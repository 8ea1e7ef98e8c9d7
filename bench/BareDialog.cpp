// A program that shows the main dialog's template with its controls and has nothing else of the program
// behind it, on the same framework and built with the same options as plotvane.exe: the floor under its
// start, its memory and its size.
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
