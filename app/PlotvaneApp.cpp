#include "app/PlotvaneApp.h"

#include <windows.h>

#include <commctrl.h>

#include "app/PlotvaneDlg.h"

namespace plotvane {
namespace {

// True for the first copy. The handle stays open, and with it the name, until the process ends.
bool ClaimSingleInstance() {
    const HANDLE mutex = ::CreateMutexW(nullptr, TRUE, L"Grafell-Running");
    const bool existed = ::GetLastError() == ERROR_ALREADY_EXISTS;
    if (mutex) ::ReleaseMutex(mutex);
    return !existed;
}

CPlotvaneApp theApp;

}  // namespace

BOOL CPlotvaneApp::InitInstance() {
    if (!ClaimSingleInstance()) return FALSE;
    const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_WIN95_CLASSES};
    ::InitCommonControlsEx(&controls);
    CPlotvaneDlg dialog;
    dialog.DoModal();
    return FALSE;
}

}  // namespace plotvane
