#pragma once

#include "base/ReadWatch.h"
#include "model/MessagePump.h"
#include "model/RunState.h"

namespace plotvane {

// Keeps the window alive while a file is read. After a Stop or a close the rest of the file is not wanted.
class RunWatch : public ReadWatch {
public:
    RunWatch(MessagePump& pump, const RunState& state) : m_pump(pump), m_state(state) {}

    bool GoOn() override {
        const std::uint32_t stops = m_state.stops;
        m_pump.SleepAndDispatch(0);
        return stops == m_state.stops;
    }

private:
    MessagePump& m_pump;
    const RunState& m_state;
};

}  // namespace plotvane
