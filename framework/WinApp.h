#pragma once

#include <windows.h>

// The application: one object of a derived class, with static lifetime, is the whole program. The entry point
// of a windowed program comes with it (linker option -municode): it runs InitInstance and ends the process
// with 0, or with 1 if that throws.
class CWinApp {
public:
    CWinApp();
    virtual ~CWinApp();
    CWinApp(const CWinApp&) = delete;
    CWinApp& operator=(const CWinApp&) = delete;

    // The whole run of a program that is one modal dialog. FALSE ends the process, and nothing but FALSE is
    // of use here: there is no message loop of the application's own that TRUE could ask for.
    virtual BOOL InitInstance() = 0;

    // The application object; null where there is none, as in test programs.
    static CWinApp* Current();
};
