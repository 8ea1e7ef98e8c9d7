#include "framework/WinApp.h"

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
