#pragma once

#include "link/BlockReader.h"
#include "link/RecordSource.h"

namespace plotvane {

// Records from the host's pipe. Its descriptor is never closed: a restart goes on reading from it.
class LiveSource : public RecordSource {
public:
    // Both must outlive this object.
    LiveSource(HostPipe& pipe, MessagePump& pump) : m_pump(pump), m_blocks(pipe, pump) {}

    // Reads the exchange file in the current folder. False if there is none.
    bool Open();

    std::optional<RunEnd> Read(RecordBuffer& record, const LoopRun& run) override {
        return m_blocks.Read(record, run);
    }
    double Seconds() override { return m_pump.NowMs() / 1000.0; }

private:
    MessagePump& m_pump;
    BlockReader m_blocks;
};

}  // namespace plotvane
