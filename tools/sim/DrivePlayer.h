#pragma once

#include <optional>
#include <string>

#include "tools/drives/Drive.h"
#include "tools/drives/DriveRecord.h"
#include "tools/sim/HostLink.h"

namespace plotvane {

// The ways in which a host can go wrong on purpose.
enum class Fault {
    None,
    StopMidBlock,  // half a block, then nothing more; the host stays alive
    Die,           // half a block, then the host is gone
    Malformed,     // one record whose first field has no "F"; then goes on
    Silence,       // nothing more, not even 0xFF; the host stays alive
    Flood,         // from then on 0xFF bytes between the records, as fast as the pipe takes them
    Garbage        // one block of arbitrary bytes; then goes on
};

// How the host ends its part.
enum class HostEnd {
    Stop,   // 0xFE: stops sending
    Close,  // 0xFD: closes the program
    Both    // 0xFE, a pause, 0xFD; a stopped program reads the 0xFD when its user resumes it
};

struct PlayPlan {
    RecordForm form = RecordForm::Normal;
    std::string module = "038 906 019 FT";  // Windows-1252, no comma, at most 100 characters
    double rate = 10;                       // records per second
    double speed = 1;                       // seconds of the drive per second of real time
    std::optional<double> seconds;          // plays no longer than this
    bool loop = false;                      // starts the drive again at its end
    bool keepOpen = false;                  // after 0xFE, plays again once the program reads again
    Fault fault = Fault::None;
    double faultAt = 5;  // seconds after playing began
    HostEnd end = HostEnd::Close;
    double pause = 1;  // seconds between 0xFE and 0xFD
};

enum class PlayResult {
    Stopped,      // the program was told that no more data comes; the pipe is still open
    Closed,       // the program was still reading and was told to close
    PipeClosed,   // the pipe was closed in the middle of a block, without a control code
    ProgramGone,  // the program ended by itself
    Died          // the fault ended the host
};

// Plays the drive into the pipe, block by block, and ends as planned. A fault strikes once, even if the drive
// is played again.
PlayResult Play(HostLink& link, const Drive& drive, const PlayPlan& plan);

}  // namespace plotvane
