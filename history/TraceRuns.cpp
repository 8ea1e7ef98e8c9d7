#include "history/TraceRuns.h"

#include <algorithm>

namespace plotvane {

std::vector<TraceRun> RunsOf(const Recording& recording, int trace, std::int64_t begin, std::int64_t end) {
    const std::vector<Stretch>& stretches = recording.Stretches();
    std::vector<TraceRun> runs;
    const RecordedTrace* before = nullptr;
    bool isOpen = false;  // the last run goes on in the stretch before
    for (std::size_t i = 0; i < stretches.size(); ++i) {
        const RecordedTrace& shown = stretches[i].traces[static_cast<std::size_t>(trace)];
        isOpen = isOpen && shown.ShowsSameAs(*before);
        before = &shown;
        if (isOpen) runs.back().shown = &shown;
        const bool isLast = i + 1 == stretches.size();
        const std::int64_t from = std::max(stretches[i].first, begin);
        const std::int64_t until = std::min(isLast ? recording.End() : stretches[i + 1].first, end);
        if (!shown.isActive || from >= until) continue;
        if (isOpen) {
            runs.back().end = until;
        } else {
            runs.push_back({from, until, &shown});
            isOpen = true;
        }
    }
    return runs;
}

const RecordedTrace* ShownAt(const Recording& recording, int trace, std::int64_t sample) {
    const std::vector<TraceRun> runs = RunsOf(recording, trace, sample, sample + 1);
    return runs.empty() ? nullptr : runs.front().shown;
}

}  // namespace plotvane
