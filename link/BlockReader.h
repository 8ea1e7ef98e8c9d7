#pragma once

#include <array>

#include "link/HostPipe.h"
#include "link/RecordSource.h"
#include "model/MessagePump.h"

namespace plotvane {

// Takes the host's blocks out of the pipe: a lead byte and, unless that is a control code, the 512 other
// bytes of a record. The window stays alive throughout, even when a block stops half-way. Bytes that have
// arrived but are not used yet are kept for the next run. So if a run ends inside a block, the next one does
// not take the rest of it for lead bytes.
class BlockReader {
public:
    BlockReader(HostPipe& pipe, MessagePump& pump) : m_pipe(pipe), m_pump(pump) {}

    // Reads from this descriptor. Bytes kept from another one are dropped.
    void Attach(int descriptor);

    // Waits for the next block, at least for the rest of the 50 ms round that began after the last wait.
    // Answers as RecordSource::Read does.
    std::optional<RunEnd> Read(RecordBuffer& record, const LoopRun& run);

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
