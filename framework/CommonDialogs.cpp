#include "framework/CommonDialogs.h"

const SystemLibrary& CommonDialogs() {
    static const SystemLibrary& library = *new SystemLibrary(L"comdlg32.dll");  // never unloaded
    return library;
}
