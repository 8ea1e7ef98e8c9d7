#pragma once

#include <windows.h>

#include <optional>

#include "link/FineTimer.h"
#include "model/MessagePump.h"
#include "model/RunState.h"

namespace plotvane {

// Waits on the user-interface thread, with the messages of every window dispatched and the keys of the main
// dialog treated as a dialog's. When the thread is asked to quit, the acquisition is stopped and the request
// passed on to the pump outside. The messages behind a Stop or a close stay in the queue: first the run that
// it ended has to leave the stack.
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
