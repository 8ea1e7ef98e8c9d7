#pragma once

namespace plotvane {

// True if the mutex "DIAGNEL-Running" exists, which the host holds while it runs. Does not keep the mutex.
bool IsHostRunning();

}  // namespace plotvane
