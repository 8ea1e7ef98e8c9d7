#pragma once

#include <gtest/gtest.h>

#include <iosfwd>
#include <optional>

#include "tests/support/system/Feed.h"
#include "tests/support/system/Prompt.h"
#include "tests/support/system/Replay.h"

namespace plotvane::test {

// Every state of the program while only its main window is open.
enum class ProgramState {
    Idle,           // no host, and no log yet
    LiveWaiting,    // the host has sent nothing yet
    LiveRunning,    // twenty records per second come
    LiveHeld,       // records come, and Pause was pressed
    LiveStopped,    // the host has said that it stops sending
    LiveMalformed,  // a malformed record has come: the program reads nothing more, on purpose
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

// A test that can bring the program into each of these states.
class AnyState : public Replay {
protected:
    // Starts the program and brings it into that state.
    void Enter(ProgramState state);

    // Whether a user can make the program show new values again with Pause or Load alone. After a malformed
    // record that is impossible, and the last values must stay.
    ::testing::AssertionResult ComesBackToLife();

    std::optional<Feed> feed;  // in states in which the host keeps sending

private:
    void StartLive();
    void PlayLog(const std::string& log);
    void HoldWithPause();

    ProgramState m_state = ProgramState::Idle;
    bool m_live = false;
};

}  // namespace plotvane::test
