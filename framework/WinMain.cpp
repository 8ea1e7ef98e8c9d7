#include <windows.h>

#include <exception>

#include "framework/WinApp.h"
#include "framework/Wnd.h"

// Linked only into programs that have no entry point of their own. They need the linker option -municode.
int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int) {
    try {
        CWinApp::Current()->InitInstance();
        return 0;
    } catch (const std::exception& e) {
        TraceLine(e.what());
        return 1;
    }
}
