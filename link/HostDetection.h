#pragma once

namespace plotvane {

// True if the host runs: it holds the mutex "DIAGNEL-Running". Asking leaves nothing behind.
bool IsHostRunning();

}  // namespace plotvane
