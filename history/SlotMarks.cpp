#include "history/SlotMarks.h"

#include "history/TraceTexts.h"

namespace plotvane {
namespace {

std::string NewNames(const RecordedTraces& before, const RecordedTraces& after) {
    std::string names;
    for (std::size_t trace = 0; trace < after.size(); ++trace) {
        if (!after[trace].isActive || after[trace].ShowsSameAs(before[trace])) continue;
        if (!names.empty()) names += ", ";
        names += NameOf(after[trace]);
    }
    return names;
}

}  // namespace

std::vector<SlotMark> SlotMarksOf(const LookBack& state) {
    std::vector<SlotMark> marks;
    const std::vector<Stretch>& stretches = state.Samples().Stretches();
    const LookBack::SampleRange view = state.InView();
    for (std::size_t i = 1; i < stretches.size(); ++i) {
        const std::int64_t first = stretches[i].first;
        if (first < view.begin || first >= view.end) continue;
        std::string names = NewNames(stretches[i - 1].traces, stretches[i].traces);
        if (names.empty()) continue;
        const double column = state.View().ColumnOf(state.Samples().Seconds(first));
        marks.push_back({static_cast<int>(column), std::move(names)});
    }
    return marks;
}

}  // namespace plotvane
