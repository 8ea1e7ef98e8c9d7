#pragma once

#include <windows.h>

#include "link/HostPipe.h"

namespace plotvane {

// The host's pipe as it really comes: a descriptor of the C runtime that this process inherited at its
// start. Reading it never waits, because the pipe is asked first what it holds. A file in the pipe's place is
// read to its end; anything else reads as a closed pipe, and so does a pipe that cannot be asked.
class InheritedPipe : public HostPipe {
public:
    InheritedPipe();

    void Attach(int descriptor) override;
    int TryRead(std::span<char> buffer) override;

private:
    int m_descriptor = -1;
    HANDLE m_handle = INVALID_HANDLE_VALUE;  // not owned: it belongs to the descriptor
    DWORD m_type = FILE_TYPE_UNKNOWN;
};

}  // namespace plotvane
