#pragma once

#include <windows.h>

// The application. The program has one object of a derived class, with static lifetime. The entry point of a
// windowed program (linker option -municode) comes with this class: it runs InitInstance and ends the process
// with 0, or with 1 if InitInstance throws.
class CWinApp {
public:
    CWinApp();
    virtual ~CWinApp();
    CWinApp(const CWinApp&) = delete;
    CWinApp& operator=(const CWinApp&) = delete;

    // The whole run of a program that is one modal dialog. Must return FALSE, which ends the process: the
    // application has no message loop that TRUE could ask for.
    virtual BOOL InitInstance() = 0;

    // The application object; null if there is none, as in test programs.
    static CWinApp* Current();
};
