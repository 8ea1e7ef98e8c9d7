#pragma once

#include "model/RunState.h"

namespace plotvane {

// What the Pause button offers: nothing to hold, a hold, going on after a hold, starting over after a stop.
enum class PauseImage { Idle, Pause, Resume, StartOver };

// How Stop, Pause and Load log file look. Stop and Load have an image for work and one for rest. Load is
// always enabled.
struct RunButtonsLook {
    bool stopActive = false;
    bool stopEnabled = false;
    PauseImage pause = PauseImage::Idle;
    bool pauseEnabled = false;
    bool loadActive = false;

    bool operator==(const RunButtonsLook&) const = default;
};

// The look for a run state. Different states may look alike:
// - A stopped live run and a stopped replay both offer to start over. Pause knows which of the two it means.
// - A run that a malformed record has frozen looks as if it went on, because nothing has stopped it.
// - If the user chooses no log, Pause is disabled as at the start. If the header of the chosen log is
//   unreadable, Pause stays as it was: enabled if a replay was stopped before, otherwise disabled.
RunButtonsLook LookOf(const RunState& state);

// The three buttons as the portable code sees them; the main dialog has the real ones.
struct RunButtons {
    virtual ~RunButtons() = default;
    virtual void Show(const RunButtonsLook& look) = 0;
};

}  // namespace plotvane
