#pragma once

#include <windows.h>

#include <optional>

#include "link/FineTimer.h"
#include "model/MessagePump.h"
#include "model/RunState.h"

namespace plotvane {

// Waits on the user-interface thread. While it waits, it dispatches the messages of every window and treats
// the keys of the main dialog as a dialog's. When the thread is asked to quit, it stops the acquisition and
// passes the request on to the message loop outside. Messages that come after a Stop or a close stay in the
// queue: first the run that was ended must leave the stack.
class WindowPump : public MessagePump {
public:
    explicit WindowPump(RunState& state);
    WindowPump(const WindowPump&) = delete;
    WindowPump& operator=(const WindowPump&) = delete;

    // The dialog whose Tab, Enter and Esc keys work while data flows.
    void SetDialog(HWND dialog) { m_dialog = dialog; }

    double NowMs() override;
    void SleepAndDispatch(int ms) override;

private:
    void DispatchWaiting();

    RunState& m_state;
    HWND m_dialog = nullptr;
    double m_msPerCount;
    std::optional<FineTimer> m_timer;  // from the first wait on: the start is no place to load a library
};

}  // namespace plotvane
