#include "link/HostDetection.h"

#include <windows.h>

namespace plotvane {

bool IsHostRunning() {
    const HANDLE mutex = ::CreateMutexW(nullptr, TRUE, L"DIAGNEL-Running");
    const bool existed = ::GetLastError() == ERROR_ALREADY_EXISTS;
    if (mutex) {
        ::ReleaseMutex(mutex);
        // Kept open, the name would make a host that starts later believe that it already runs.
        ::CloseHandle(mutex);
    }
    return existed;
}

}  // namespace plotvane
