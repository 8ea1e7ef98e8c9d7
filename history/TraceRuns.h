#pragma once

#include <cstdint>
#include <vector>

#include "history/Recording.h"

namespace plotvane {

// Samples, from `begin` to before `end`, in which a trace shows one and the same field. Its name and its
// limits are the last that it had there, so a range that the user has widened holds for the whole line.
struct TraceRun {
    std::int64_t begin = 0;
    std::int64_t end = 0;
    const RecordedTrace* shown = nullptr;  // of a stretch of the recording
};

// What a trace shows from one sample to before another, in the order of time; without what lies where it
// shows nothing. Valid until the recording changes.
std::vector<TraceRun> RunsOf(const Recording& recording, int trace, std::int64_t begin, std::int64_t end);

// The same at one sample; null if the trace shows nothing there.
const RecordedTrace* ShownAt(const Recording& recording, int trace, std::int64_t sample);

}  // namespace plotvane
