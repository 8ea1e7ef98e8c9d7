#pragma once

#include <cstdint>

#include "model/RunState.h"

namespace plotvane {

// One run of the acquisition loop. It has ended if it was stopped, and also if a handler stopped it during a
// wait and started another: the flags then describe the newer run.
class LoopRun {
public:
    explicit LoopRun(const RunState& state) : m_state(state), m_generation(state.generation) {}

    bool IsCurrent() const { return m_generation == m_state.generation; }
    bool Ended() const { return m_state.stopped || !IsCurrent(); }

private:
    const RunState& m_state;
    std::uint32_t m_generation;
};

}  // namespace plotvane
