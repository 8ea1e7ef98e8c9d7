#pragma once

namespace plotvane {

// True if the host runs, which holds the mutex "DIAGNEL-Running". Does not keep the mutex.
bool IsHostRunning();

}  // namespace plotvane
