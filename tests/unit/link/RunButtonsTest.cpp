#include "link/RunButtons.h"

#include <gtest/gtest.h>

#include <ostream>

namespace plotvane {

void PrintTo(const RunButtonsLook& look, std::ostream* out) {
    constexpr const char* kPause[] = {"Idle", "Pause", "Resume", "StartOver"};
    *out << "Stop " << (look.stopActive ? "active" : "at rest") << (look.stopEnabled ? "" : ", disabled")
         << "; Pause " << kPause[static_cast<int>(look.pause)] << (look.pauseEnabled ? "" : ", disabled")
         << "; Load " << (look.loadActive ? "active" : "at rest");
}

namespace {

struct Row {
    const char* what;
    RunState state;
    RunButtonsLook look;
};

constexpr RunButtonsLook Replay(PauseImage pause) {
    return {
        .stopActive = true, .stopEnabled = true, .pause = pause, .pauseEnabled = true, .loadActive = true};
}

constexpr RunButtonsLook Resting(PauseImage pause, bool pauseEnabled) {
    return {.pause = pause, .pauseEnabled = pauseEnabled};
}

TEST(RunButtons, EachRunStateHasItsLook) {
    using enum PauseImage;
    const Row rows[] = {
        {"at the start", {}, Resting(Idle, false)},
        {"live", {.hostRunning = true, .stopped = false}, Resting(Pause, true)},
        {"live and held", {.hostRunning = true, .stopped = false, .playing = false}, Resting(Resume, true)},
        {"live and stopped", {.hostRunning = true, .restartAfterStop = true}, Resting(StartOver, true)},
        {"live, stopped in a hold",
         {.hostRunning = true, .playing = false, .restartAfterStop = true},
         Resting(StartOver, true)},
        {"replay", {.stopped = false, .logMode = true}, Replay(Pause)},
        {"replay, held or halted", {.stopped = false, .playing = false, .logMode = true}, Replay(Resume)},
        {"replay of the last row", {.stopped = false, .logMode = true, .endOfLog = true}, Replay(Pause)},
        {"replay stopped", {.endOfLog = true, .reopenLog = true}, Resting(StartOver, true)},
        {"replay stopped in a hold", {.playing = false, .reopenLog = true}, Resting(StartOver, true)},
        {"a first log is chosen", {.halted = true}, Resting(Idle, false)},
        {"another log is chosen", {.halted = true, .pauseKept = true}, Resting(Idle, true)},
        {"another log is chosen after a hold",
         {.playing = false, .halted = true, .pauseKept = true},
         Resting(Idle, true)},
        {"a replay after another log", {.stopped = false, .logMode = true, .pauseKept = true}, Replay(Pause)},
        {"the other replay stopped", {.reopenLog = true, .pauseKept = true}, Resting(StartOver, true)},
    };
    for (const Row& row : rows) EXPECT_EQ(LookOf(row.state), row.look) << row.what;
}

}  // namespace
}  // namespace plotvane
