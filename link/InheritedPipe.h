#pragma once

#include <windows.h>

#include <cstddef>
#include <span>

#include "link/HostPipe.h"

namespace plotvane {

// The host's pipe as it really comes: a descriptor of the C run-time that this process inherited at its
// start. Reading never waits, because the pipe is asked first how much it holds. A file in the pipe's place
// is read to its end. Anything else reads as a closed pipe, and so does a pipe that cannot be asked.
class InheritedPipe : public HostPipe {
public:
    InheritedPipe();

    // With another block of descriptors (see InheritedHandleOf) than the process was started with. Without
    // one, descriptors are those of this program's own run-time.
    explicit InheritedPipe(std::span<const std::byte> block);

    void Attach(int descriptor) override;
    int TryRead(std::span<char> buffer) override;

private:
    HANDLE HandleOf(int descriptor) const;

    std::span<const std::byte> m_block;
    HANDLE m_handle = INVALID_HANDLE_VALUE;  // not owned: it belongs to the descriptor
    DWORD m_type = FILE_TYPE_UNKNOWN;
};

}  // namespace plotvane
