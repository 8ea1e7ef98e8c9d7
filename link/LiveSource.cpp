#include "link/LiveSource.h"

#include "link/ExchangeFile.h"

namespace plotvane {

bool LiveSource::Open() {
    const auto descriptor = ReadExchangeFile(kExchangeFileName);
    if (!descriptor) return false;
    m_blocks.Attach(*descriptor);
    return true;
}

Next LiveSource::Read(RecordBuffer& record, const LoopRun& run) {
    switch (m_blocks.Read(record, run)) {
        case Block::Record:
            return Next::Record;
        case Block::HostClosing:
            return Next::Closing;
        case Block::Ended:
            return Next::Ended;
        case Block::HostStopped:
            break;
    }
    return Next::Stopped;
}

}  // namespace plotvane
