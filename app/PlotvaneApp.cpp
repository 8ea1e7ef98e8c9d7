#include "app/PlotvaneApp.h"

#include <windows.h>

#include <commctrl.h>

#include "app/PlotvaneDlg.h"

namespace plotvane {
namespace {

// From here on Windows looks for a library that is named without a folder only in its own folder and in those
// that a program adds on purpose. This also holds for what Windows' own dialogs load. Without it, Windows
// would first look beside the program and in the working folder, and anybody may have put files there.
void RefuseForeignLibraries() {
    ::SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32 | LOAD_LIBRARY_SEARCH_USER_DIRS);
    ::SetDllDirectoryW(L"");  // leaves the working folder out of the older order of search too
}

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
    RefuseForeignLibraries();
    if (!ClaimSingleInstance()) return FALSE;
    const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_WIN95_CLASSES};
    ::InitCommonControlsEx(&controls);
    CPlotvaneDlg dialog;
    dialog.DoModal();
    return FALSE;
}

}  // namespace plotvane
