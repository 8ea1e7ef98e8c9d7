#pragma once

#include <chrono>
#include <thread>

namespace plotvane {

// A virus scanner, an indexer or a backup often holds a file for a moment, and Windows then refuses it to
// everybody else. Calls `attempt` until it answers true, for 80 ms at most: the user-interface thread waits.
// Answers what the last call did.
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
