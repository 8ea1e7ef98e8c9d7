#pragma once

#include <optional>

#include "model/LoopRun.h"
#include "model/RecordBuffer.h"

namespace plotvane {

// Why the loop has returned.
enum class RunEnd {
    Stopped,      // the host has stopped sending or is gone, or the log is over
    Closing,      // the host closes, and this program with it
    Halted,       // the replay waits for the user; afterwards the same run goes on
    Malformed,    // nobody can read the record
    Interrupted,  // a handler has stopped this run, and perhaps started another
};

// Where records come from: the host's pipe or a log.
struct RecordSource {
    virtual ~RecordSource() = default;

    // Waits for the next record and keeps the window alive meanwhile. Returns nothing once the buffer holds
    // the record; otherwise the reason why the loop must return.
    virtual std::optional<RunEnd> Read(RecordBuffer& record, const LoopRun& run) = 0;

    // The time of the record that was read last, in seconds: by the log, or by a clock that never goes back.
    virtual double Seconds() = 0;
};

}  // namespace plotvane
