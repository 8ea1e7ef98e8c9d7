#pragma once

#include <span>

namespace plotvane {

// The read end of the host's pipe.
struct HostPipe {
    static constexpr int kEndOfStream = -1;

    virtual ~HostPipe() = default;

    // Reads from this descriptor of the C runtime from now on. A bad one reads as a closed pipe.
    virtual void Attach(int descriptor) = 0;

    // Takes what has already arrived, at most the buffer's size, and never waits for more: the count, 0 when
    // nothing has arrived, kEndOfStream when the host has closed its end or the pipe cannot be read.
    virtual int TryRead(std::span<char> buffer) = 0;
};

}  // namespace plotvane
