#pragma once

#include <windows.h>

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

    SetPeriod* Function(const char* name) const;

    HMODULE m_library;
};

}  // namespace plotvane
