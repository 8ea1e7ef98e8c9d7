#pragma once

#include <windows.h>

#include <optional>

#include "link/FineTimer.h"
#include "model/MessagePump.h"
#include "model/RunState.h"

namespace plotvane {

// Waits on the user-interface thread. While it waits, it dispatches the messages of every window, as the
// loops of the dialogs do (HandleQueued). When the thread is asked to quit, it stops the acquisition and
// passes the request on to the message loop outside. Messages that come after a Stop or a close stay in the
// queue: first the run that was ended must leave the stack.
class WindowPump : public MessagePump {
public:
    explicit WindowPump(RunState& state);
    WindowPump(const WindowPump&) = delete;
    WindowPump& operator=(const WindowPump&) = delete;

    double NowMs() override;
    void SleepAndDispatch(int ms) override;

private:
    void DispatchWaiting();

    RunState& m_state;
    double m_msPerCount;
    std::optional<FineTimer> m_timer;  // from the first wait on: the start is no place to load a library
};

}  // namespace plotvane
