#pragma once

#include <windows.h>

#include "framework/SystemLibrary.h"

namespace plotvane {

// For as long as it lives, Windows wakes a sleeper to the millisecond; without it a wait of one millisecond
// may last sixteen. Where that cannot be had, the waits are coarse and all else is as ever.
class FineTimer {
public:
    FineTimer();
    ~FineTimer();
    FineTimer(const FineTimer&) = delete;
    FineTimer& operator=(const FineTimer&) = delete;

private:
    using SetPeriod = UINT WINAPI(UINT ms);

    SystemLibrary m_multimedia;
};

}  // namespace plotvane
