#pragma once

#include "model/LoopRun.h"
#include "model/RecordBuffer.h"

namespace plotvane {

enum class Next {
    Record,   // the record buffer holds the next record
    Stopped,  // no more will come: stop
    Closing,  // the host closes, and this program with it
    Ended,    // the run ended while waiting
};

// Where records come from: the host's pipe or a log.
struct RecordSource {
    virtual ~RecordSource() = default;

    // Waits for the next record with the window alive.
    virtual Next Read(RecordBuffer& record, const LoopRun& run) = 0;
};

}  // namespace plotvane
