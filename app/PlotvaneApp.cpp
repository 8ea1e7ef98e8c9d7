#include "app/PlotvaneApp.h"

#include <windows.h>

#include <commctrl.h>

#include "app/PlotvaneDlg.h"

namespace plotvane {
namespace {

// From here on a library that is asked for by its name alone, by Windows' own dialogs too, comes from
// Windows' own folder or from one that a program has added on purpose. Without this, whatever lies beside the
// program or in the working folder, which may be anybody's folder of logs, would come first.
void RefuseForeignLibraries() {
    ::SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32 | LOAD_LIBRARY_SEARCH_USER_DIRS);
    ::SetDllDirectoryW(L"");  // no working folder, for those too who ask for the old order of search
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
