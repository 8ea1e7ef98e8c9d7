#include "history/TracePlotter.h"

#include <algorithm>

#include "history/TraceRuns.h"

namespace plotvane {

void TracePlotter::Plot(const LookBack& state, const HistoryLook& look, TracePlot& plot) {
    if (state.Samples().IsEmpty()) return;
    const int rows = plot.place.Height();
    const Basis basis = BasisOf(state, rows);
    const int first = ColumnsKept(state, basis);
    m_end = 0;  // until all columns are found out
    const TraceColumns columns(state.Samples(), state.View(), first);
    const auto add = [&](int trace) {
        PlotFrom(first, state, rows, trace, columns);
        plot.traces.push_back(
            {look.ColourOf(trace, state.Front()), m_columns[static_cast<std::size_t>(trace)]});
    };
    for (int trace = 0; trace < kSlotCount; ++trace) {
        if (!state.IsHidden(trace) && trace != state.Front()) add(trace);
    }
    if (const auto front = state.Front()) add(*front);
    m_basis = basis;
    m_end = state.Samples().End();
    plot.kept = first;
}

TracePlotter::Basis TracePlotter::BasisOf(const LookBack& state, int rows) {
    const Recording& samples = state.Samples();
    const Viewport& view = state.View();
    Basis basis{view.Begin(), view.Length(), view.Width(), rows, samples.Run(), 0, {}};
    basis.lastStretch = samples.Stretches().back().first;
    for (int trace = 0; trace < kSlotCount; ++trace)
        basis.isHidden[static_cast<std::size_t>(trace)] = state.IsHidden(trace) && trace != state.Front();
    return basis;
}

// Those left of the last sample that was there: from that one the line goes on.
int TracePlotter::ColumnsKept(const LookBack& state, const Basis& basis) const {
    // A stretch without a sample may have been replaced since.
    if (basis != m_basis || m_end <= basis.lastStretch) return 0;
    // A column less, for rounding.
    const double column = state.View().ColumnOf(state.Samples().Seconds(m_end - 1)) - 1.0;
    return static_cast<int>(std::clamp(column, 0.0, static_cast<double>(basis.width)));
}

void TracePlotter::PlotFrom(int column, const LookBack& state, int rows, int trace,
                            const TraceColumns& columns) {
    std::vector<RowSpan>& plotted = m_columns[static_cast<std::size_t>(trace)];
    plotted.resize(static_cast<std::size_t>(column));
    plotted.resize(static_cast<std::size_t>(state.View().Width()));
    // The lines that lead out of the view at both sides are seen too.
    const Recording& samples = state.Samples();
    const LookBack::SampleRange view = state.InView();
    const auto runs = RunsOf(samples, trace, std::max(view.begin - 1, samples.Begin()),
                             std::min(view.end + 1, samples.End()));
    std::vector<ColumnSpan> spans;
    for (const TraceRun& run : runs) {
        const int first = columns.LineThrough(trace, run.begin, run.end, spans);
        const RowScale scale(run.shown->lower, run.shown->upper, rows);
        auto out = plotted.begin() + first;
        for (const ColumnSpan& span : spans) (out++)->Include(scale.RowsOf(span));
    }
}

}  // namespace plotvane
