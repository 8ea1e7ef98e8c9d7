#include "history/TraceList.h"

#include <algorithm>
#include <optional>

#include "history/SpanFigures.h"
#include "history/TimeTicks.h"
#include "history/TraceRuns.h"
#include "history/TraceTexts.h"

namespace plotvane {
namespace {

constexpr int kTimeDecimals = 2;

// From the earlier of two cursors to the later one, both included.
struct Span {
    std::int64_t first;
    std::int64_t last;
};

std::optional<Span> SpanOfCursors(const LookBack& state) {
    const auto one = state.Cursor();
    const auto other = state.Second();
    if (!one || !other) return std::nullopt;
    return Span{std::min(*one, *other), std::max(*one, *other)};
}

// The part of a span in which the trace shows what it shows at `sample`, where that is all of it.
bool ShowsOneThing(const LookBack& state, int trace, const Span& span) {
    const auto runs = RunsOf(state.Samples(), trace, span.first, span.last + 1);
    return runs.size() == 1 && runs.front().begin == span.first && runs.front().end == span.last + 1;
}

// What the trace shows at `sample`, as far as it is in view.
std::optional<Span> SpanInView(const LookBack& state, int trace, std::int64_t sample) {
    const LookBack::SampleRange view = state.InView();
    for (const TraceRun& run :
         RunsOf(state.Samples(), trace, std::min(view.begin, sample), std::max(view.end, sample + 1))) {
        if (sample < run.begin || sample >= run.end) continue;
        const Span span{std::max(run.begin, view.begin), std::min(run.end, view.end) - 1};
        if (span.first <= span.last) return span;
    }
    return std::nullopt;
}

std::string Extent(const RecordedTrace& shown, double lowest, double highest) {
    return ValueText(shown, lowest) + " \x85 " + ValueText(shown, highest);
}

void TellSpan(const LookBack& state, const RecordedTrace& shown, const Span& span, ListedTrace& listed) {
    if (!ShowsOneThing(state, listed.trace, span)) return;
    const SpanFigures figures = FiguresOf(state.Samples(), listed.trace, span.first, span.last);
    listed.difference = "diff " + ValueText(shown, figures.difference);
    listed.extent =
        Extent(shown, figures.lowest, figures.highest) + ", mean " + ValueText(shown, figures.mean);
}

ListedTrace Listed(const LookBack& state, int trace, const RecordedTrace& shown, std::int64_t sample) {
    ListedTrace listed{trace, state.IsHidden(trace), state.Front() == trace, NameOf(shown), {}, {}, {}};
    listed.value = ValueAndUnitText(shown, state.Samples().Value(trace, sample));
    if (const auto span = SpanOfCursors(state)) {
        TellSpan(state, shown, *span, listed);
    } else if (const auto inView = SpanInView(state, trace, sample)) {
        const auto extremes = state.Samples().ExtremesOf(trace, inView->first, inView->last + 1);
        listed.extent = Extent(shown, extremes.lowest, extremes.highest);
    }
    return listed;
}

void AppendLine(std::string& table, std::initializer_list<std::string> cells) {
    bool isFirst = true;
    for (const std::string& cell : cells) {
        if (!isFirst) table += '\t';
        isFirst = false;
        // A tab or a line end in a name would begin another cell.
        for (const char c : cell) table += c == '\t' || c == '\r' || c == '\n' ? ' ' : c;
    }
    table += "\r\n";
}

std::string TimeOf(const LookBack& state, std::int64_t sample) {
    return TimeText(state.Samples().Seconds(sample), kTimeDecimals);
}

template <typename AppendTrace>
void ForEachShown(const LookBack& state, std::int64_t sample, const AppendTrace& append) {
    for (int trace = 0; trace < kSlotCount; ++trace) {
        if (state.IsHidden(trace)) continue;
        if (const RecordedTrace* const shown = ShownAt(state.Samples(), trace, sample)) append(trace, *shown);
    }
}

std::string TableAt(const LookBack& state, std::int64_t sample) {
    std::string table;
    AppendLine(table, {"Name", "Unit", TimeOf(state, sample)});
    ForEachShown(state, sample, [&](int trace, const RecordedTrace& shown) {
        AppendLine(table,
                   {NameOf(shown), shown.unit, ValueText(shown, state.Samples().Value(trace, sample))});
    });
    return table;
}

std::string TableBetween(const LookBack& state, const Span& span) {
    std::string table;
    AppendLine(table, {"Name", "Unit", TimeOf(state, span.first), TimeOf(state, span.last), "Difference",
                       "Lowest", "Mean", "Highest"});
    ForEachShown(state, span.first, [&](int trace, const RecordedTrace& shown) {
        if (!ShowsOneThing(state, trace, span)) return;
        const auto text = [&](double value) { return ValueText(shown, value); };
        const SpanFigures figures = FiguresOf(state.Samples(), trace, span.first, span.last);
        AppendLine(table, {NameOf(shown), shown.unit, text(state.Samples().Value(trace, span.first)),
                           text(state.Samples().Value(trace, span.last)), text(figures.difference),
                           text(figures.lowest), text(figures.mean), text(figures.highest)});
    });
    return table;
}

}  // namespace

std::vector<ListedTrace> ListOf(const LookBack& state) {
    std::vector<ListedTrace> list;
    const auto sample = state.ToldSample();
    if (!sample) return list;
    for (int trace = 0; trace < kSlotCount; ++trace) {
        if (const RecordedTrace* const shown = ShownAt(state.Samples(), trace, *sample))
            list.push_back(Listed(state, trace, *shown, *sample));
    }
    return list;
}

CursorTexts TimesOfCursors(const LookBack& state) {
    CursorTexts texts;
    const auto cursor = state.Cursor();
    if (!cursor) return texts;
    texts.time = TimeOf(state, *cursor);
    if (const auto span = SpanOfCursors(state)) {
        const double seconds = state.Samples().Seconds(span->last) - state.Samples().Seconds(span->first);
        texts.distance = TimeText(seconds, kTimeDecimals);
        if (seconds < 60.0) texts.distance += " s";
    }
    return texts;
}

std::string RecordedNote(const LookBack& state) {
    const Recording& recording = state.Samples();
    if (recording.IsEmpty())
        return recording.HasEnded() ? "no memory is left, so nothing is recorded" : "nothing recorded yet";
    const double seconds = recording.Seconds(recording.End() - 1) - recording.Seconds(recording.Begin());
    std::string note = DurationText(seconds) + " recorded";
    if (state.View().IsFollowing()) note += ", following";
    if (recording.HasEnded()) note += "; no memory is left, so the recording has ended";
    return note;
}

std::string CursorTable(const LookBack& state) {
    if (const auto span = SpanOfCursors(state)) return TableBetween(state, *span);
    const auto sample = state.ToldSample();
    return sample ? TableAt(state, *sample) : std::string();
}

}  // namespace plotvane
