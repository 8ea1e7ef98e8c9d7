#pragma once

namespace plotvane {

// True if the host runs: it holds the mutex "DIAGNEL-Running". Leaves no trace of having asked.
bool IsHostRunning();

}  // namespace plotvane
