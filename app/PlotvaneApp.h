#pragma once

#include "framework/WinApp.h"

namespace plotvane {

// The program: one main dialog, in one process at a time.
class CPlotvaneApp : public CWinApp {
public:
    // The whole run. A second copy ends at once and silently.
    BOOL InitInstance() override;
};

}  // namespace plotvane
