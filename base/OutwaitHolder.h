#pragma once

#include <chrono>
#include <thread>

namespace plotvane {

// A virus scanner, an indexer or a backup often holds a file for a moment, and Windows then refuses it to all
// others. Calls `attempt` until it returns true, for at most 80 ms, because the user-interface thread waits.
// Returns the result of the last call.
template <typename Attempt>
bool OutwaitHolder(const Attempt& attempt) {
    constexpr int kAttempts = 5;
    constexpr std::chrono::milliseconds kPause{20};
    for (int attempts = 1; !attempt(); ++attempts) {
        if (attempts == kAttempts) return false;
        std::this_thread::sleep_for(kPause);
    }
    return true;
}

}  // namespace plotvane
