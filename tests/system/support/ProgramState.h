#pragma once

#include <gtest/gtest.h>

#include <iosfwd>
#include <optional>

#include "tests/system/support/Feed.h"
#include "tests/system/support/Prompt.h"
#include "tests/system/support/Replay.h"

namespace plotvane::test {

// Every state that the program can be in while nothing but its main window is open.
enum class ProgramState {
    Idle,           // no host, and no log yet
    LiveWaiting,    // the host has sent nothing yet
    LiveRunning,    // records come, twenty a second
    LiveHeld,       // the same, with Pause pressed
    LiveStopped,    // the host has said that it stops
    LiveMalformed,  // a malformed record has come: nothing is read any more, on purpose
    ReplayPlaying,
    ReplayHeld,
    ReplayEnded
};

inline constexpr ProgramState kProgramStates[] = {
    ProgramState::Idle,          ProgramState::LiveWaiting, ProgramState::LiveRunning,
    ProgramState::LiveHeld,      ProgramState::LiveStopped, ProgramState::LiveMalformed,
    ProgramState::ReplayPlaying, ProgramState::ReplayHeld,  ProgramState::ReplayEnded};

void PrintTo(ProgramState state, std::ostream* out);
std::string NameOf(ProgramState state);

// A program that can be brought into each of its states.
class AnyState : public Replay {
protected:
    // A fresh program in that state.
    void Enter(ProgramState state);

    // Whether a person can get the program to show new values again, by no more than Pause or Load. Behind a
    // malformed record nobody can, and the last values stay.
    ::testing::AssertionResult ComesBackToLife();

    std::optional<Feed> feed;  // where the host goes on sending

private:
    void StartLive();
    void PlayLog(const std::string& log);
    void HoldWithPause();

    ProgramState m_state = ProgramState::Idle;
    bool m_live = false;
};

}  // namespace plotvane::test
