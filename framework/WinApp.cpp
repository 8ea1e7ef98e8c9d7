#include "framework/WinApp.h"

#include <exception>

#include "framework/Wnd.h"

namespace {

CWinApp* s_application = nullptr;

}  // namespace

CWinApp::CWinApp() {
    s_application = this;
}
CWinApp::~CWinApp() {
    s_application = nullptr;
}
CWinApp* CWinApp::Current() {
    return s_application;
}

// It is in this file so that it comes into a program with the application object: the linker looks for the
// entry point only after it has searched the libraries.
int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int) {
    try {
        CWinApp::Current()->InitInstance();
        return 0;
    } catch (const std::exception& e) {
        TraceLine(e.what());
        return 1;
    }
}
