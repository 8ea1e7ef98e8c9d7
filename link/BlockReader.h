#pragma once

#include <array>

#include "link/HostPipe.h"
#include "model/LoopRun.h"
#include "model/MessagePump.h"
#include "model/RecordBuffer.h"

namespace plotvane {

enum class Block {
    Record,       // the record buffer holds a new block
    HostStopped,  // the host has stopped sending, or is gone
    HostClosing,
    Ended,  // the run ended while waiting
};

// Takes the host's blocks out of the pipe: a lead byte, and behind any that is no control code the 512 other
// bytes of a record. The window stays alive throughout, also when a block stops half-way. Bytes that have
// arrived but are not used yet are kept from one run of the loop to the next, so a run that ends inside a
// block never makes the next one take the rest for lead bytes.
class BlockReader {
public:
    BlockReader(HostPipe& pipe, MessagePump& pump) : m_pipe(pipe), m_pump(pump) {}

    // Reads from this descriptor; what is kept of another one is dropped.
    void Attach(int descriptor);

    // Waits for the next block, at least the rest of the 50 ms round that began after the last wait.
    Block Read(RecordBuffer& record, const LoopRun& run);

private:
    static constexpr std::size_t kBufferSize = 4096;

    void WaitOutTheRound(const LoopRun& run);
    bool DropIdleBytes();
    bool Fill();
    void Drop() { m_begin = m_end = 0; }
    std::size_t Kept() const { return m_end - m_begin; }

    HostPipe& m_pipe;
    MessagePump& m_pump;
    double m_roundBeganMs = 0.0;
    int m_descriptor = -1;
    std::array<char, kBufferSize> m_bytes{};
    std::size_t m_begin = 0;
    std::size_t m_end = 0;
};

}  // namespace plotvane
