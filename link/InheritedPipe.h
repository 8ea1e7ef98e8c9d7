#pragma once

#include <windows.h>

#include "link/HostPipe.h"

namespace plotvane {

// The host's pipe as it really comes: a descriptor of the C runtime that this process inherited at its
// start. Reading it never waits, because the pipe is asked first what it holds.
class InheritedPipe : public HostPipe {
public:
    InheritedPipe();

    void Attach(int descriptor) override;
    int TryRead(std::span<char> buffer) override;

private:
    int m_descriptor = -1;
    HANDLE m_handle = INVALID_HANDLE_VALUE;  // not owned: it belongs to the descriptor
};

}  // namespace plotvane
