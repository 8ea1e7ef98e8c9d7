// A program that shows an empty dialog and nothing else, on the same framework and built with the same
// options as plotvane.exe: the floor under its start, its memory and its size.
#include <windows.h>

#include <commctrl.h>

#include "bench/empty-dialog.h"
#include "framework/Dialog.h"
#include "framework/WinApp.h"

namespace {

class EmptyApp : public CWinApp {
    BOOL InitInstance() override {
        const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_WIN95_CLASSES};
        ::InitCommonControlsEx(&controls);
        CDialog(IDD_EMPTY).DoModal();
        return FALSE;
    }
};

EmptyApp theApp;

}  // namespace
