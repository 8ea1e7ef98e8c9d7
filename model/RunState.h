#pragma once

#include <cstdint>

namespace plotvane {

// What the message handlers and the acquisition share. There is one for the program's whole life;
// all of it is touched on the user-interface thread only.
struct RunState {
    bool hostRunning = false;  // the host's mutex existed at the start-up decision
    bool stopped = true;       // no acquisition runs; a run starts only from here
    bool playing = true;       // toggled by Pause; false means paused
    bool halted = false;       // from Load until its run starts, and during a hold: no figures, no ranges
    bool logMode = false;      // records come from a log file, not from the host
    bool endOfLog = false;     // set by the log reader when the file is exhausted
    bool restartAfterStop = false;  // live mode was stopped: the next Pause press restarts it
    bool reopenLog = false;         // a replay was stopped: the next Pause press replays the same file
    bool pauseKept = false;         // Load was pressed since: Pause stays enabled meanwhile
    bool redrawRequest = false;     // the loop redraws the whole chart after the next sample
    bool firstSampleDrawn = false;  // slot 0 was selected once in this run
    bool gapPending = false;        // a pause began while data flowed; the resume leaves a gap
    int rowsToStep = 0;             // this many rows still come although the replay is paused

    bool tenChannels = false;     // the record has the ten-channel form ("GZER")
    bool hadTenChannels = false;  // the record before had that form
    bool obdFile = false;  // generic OBD identifiers: "OBD.SCL" or an OBD log; scaling has one pair a line

    // Counts the starts of runs. If a handler starts a run while an older one is still on the stack, the
    // older one returns: only the newest may go on.
    std::uint32_t generation = 0;

    // Counts how often a Stop or a close was asked for, even while nothing ran. Code that dispatches messages
    // in the middle of its work compares the count before and after, and gives up if it has changed.
    std::uint32_t stops = 0;

    int pixelShift = 3;         // 1..15 pixels a sample
    int replayPeriodMs = 1000;  // wall time for a second of log time, 125 (8x) .. 2000 (0.5x)

    int width = 0;  // outer size of the main window at its last layout, in pixels; saved with the preferences
    int height = 0;
};

constexpr int kPixelShiftMin = 1;
constexpr int kPixelShiftMax = 15;
constexpr int kReplayPeriodMinMs = 125;   // 8x
constexpr int kReplayPeriodMaxMs = 2000;  // 0.5x

}  // namespace plotvane
