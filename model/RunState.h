#pragma once

#include <cstdint>

namespace plotvane {

// What the message handlers and the acquisition loop share. There is one for the program's whole life;
// all of it is touched on the user-interface thread only.
struct RunState {
    bool hostRunning = false;  // the host's mutex existed at the start-up decision
    bool stopped = true;       // no acquisition runs; the loop starts only from here
    bool playing = true;       // toggled by Pause; false means paused
    bool halted = false;       // from Load until its loop starts, and during a hold: no figures, no ranges
    bool logMode = false;      // records come from a log file, not from the host
    bool endOfLog = false;     // set by the log reader when the file is exhausted
    bool restartAfterStop = false;  // live mode was stopped: the next Pause press restarts it
    bool reopenLog = false;         // a replay was stopped: the next Pause press replays the same file
    bool redrawRequest = false;     // the loop redraws the whole chart after the next sample
    bool relayoutPending = false;   // timer 2 runs
    bool firstSampleDrawn = false;  // slot 0 was selected once in this run of the loop
    bool gapPending = false;        // a pause began while data flowed; the resume leaves a gap

    bool obdNow = false;       // the record holds generic OBD values ("GZER"): the ten-channel layout
    bool obdPrevious = false;  // the same of the record before, to notice a change
    bool obdFile = false;  // generic OBD identifiers: "OBD.SCL" or an OBD log; scaling has one pair a line

    // Counts the starts of the loop. A start that a handler makes while an older loop is still on the
    // stack makes that loop return: only the newest may run.
    std::uint32_t generation = 0;

    // Counts the times that a Stop or a close was asked for, also while nothing runs: what dispatches
    // messages in the midst of its work sees by it that the work is no longer wanted.
    std::uint32_t stops = 0;

    int pixelShift = 3;           // 1..15 pixels a sample
    int replayPeriodMs = 1000;    // wall time for a second of log time, 125 (8x) .. 2000 (0.5x)
    int titleHintCountdown = 15;  // ticks of the title-bar hint still to come

    int width = 0;  // outer size of the main window at its last layout, in pixels; saved with the preferences
    int height = 0;
};

constexpr int kPixelShiftMin = 1;
constexpr int kPixelShiftMax = 15;
constexpr int kReplayPeriodMinMs = 125;   // 8x
constexpr int kReplayPeriodMaxMs = 2000;  // 0.5x

}  // namespace plotvane
