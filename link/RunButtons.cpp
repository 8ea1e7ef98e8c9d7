#include "link/RunButtons.h"

namespace plotvane {

RunButtonsLook LookOf(const RunState& state) {
    const PauseImage hold = state.playing ? PauseImage::Pause : PauseImage::Resume;
    RunButtonsLook look;
    if (state.logMode) {
        look = {
            .stopActive = true, .stopEnabled = true, .pause = hold, .pauseEnabled = true, .loadActive = true};
    } else if (state.restartAfterStop || state.reopenLog) {
        look.pause = PauseImage::StartOver;
        look.pauseEnabled = true;
    } else if (state.hostRunning) {
        look.pause = hold;  // Stop stays disabled: it is for replays
        look.pauseEnabled = true;
    } else {
        look.pauseEnabled = state.pauseKept;
    }
    return look;
}

}  // namespace plotvane
