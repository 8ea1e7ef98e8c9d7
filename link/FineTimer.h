#pragma once

#include <windows.h>

#include "framework/SystemLibrary.h"

namespace plotvane {

// While it lives, Windows ends waits to the millisecond; without it a wait of one millisecond may last
// sixteen. If Windows refuses, the waits stay coarse, and nothing else changes.
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
