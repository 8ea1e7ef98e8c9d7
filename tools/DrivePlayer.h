#pragma once

#include <optional>
#include <string>

#include "tools/Drive.h"
#include "tools/DriveRecord.h"
#include "tools/HostLink.h"

namespace plotvane {

// What can go wrong with a host, on purpose.
enum class Fault {
    None,
    StopMidBlock,  // half a block, then nothing more; the host stays alive
    Die,           // half a block, then the host is gone
    Malformed,     // one record whose first field has no "F", then goes on
    Silence,       // not even 0xFF any more; the host stays alive
    Flood,         // from then on 0xFF bytes as fast as the pipe takes them, between the records
    Garbage        // one block of arbitrary bytes, then goes on
};

// How the host takes its leave.
enum class HostEnd {
    Stop,   // 0xFE: stops sending
    Close,  // 0xFD: closes, and the program with it
    Both    // 0xFE, a pause, 0xFD; a stopped program reads the latter when its user lets it go on
};

struct PlayPlan {
    RecordForm form = RecordForm::Normal;
    std::string module = "038 906 019 FT";  // Windows-1252, no comma, at most 100 characters
    double rate = 10;                       // records a second
    double speed = 1;                       // seconds of the drive for a second on the clock
    std::optional<double> seconds;          // plays no longer than this
    bool loop = false;                      // begins the drive again at its end
    bool keepOpen = false;                  // after 0xFE plays again when the program reads again
    Fault fault = Fault::None;
    double faultAt = 5;  // seconds after playing began
    HostEnd end = HostEnd::Close;
    double pause = 1;  // seconds between 0xFE and 0xFD
};

enum class PlayResult {
    Stopped,      // the program was told that nothing more comes; the pipe is still open
    Closed,       // the program, which was reading, was told to close
    PipeClosed,   // the pipe was closed in mid-block, without a word
    ProgramGone,  // the program ended by itself
    Died          // as the fault wanted
};

// Plays the drive into the pipe, block by block, and takes leave as planned. A fault strikes once, also when
// the drive is played again.
PlayResult Play(HostLink& link, const Drive& drive, const PlayPlan& plan);

}  // namespace plotvane
