#include "history/TraceColumns.h"

#include <algorithm>

namespace plotvane {

void ColumnSpan::Include(double value) {
    const bool wasEmpty = IsEmpty();
    lowest = wasEmpty ? value : std::min(lowest, value);
    highest = wasEmpty ? value : std::max(highest, value);
}

TraceColumns::TraceColumns(const Recording& recording, const Viewport& view, int first)
    : m_recording(recording), m_first(first) {
    m_edges.reserve(static_cast<std::size_t>(view.Width() - first) + 1);
    m_edges.push_back(EdgeAt(view.SecondsAt(first), recording.Begin()));
    for (int column = first; column < view.Width(); ++column)
        m_edges.push_back(EdgeAt(view.EndOfColumn(column), m_edges.back().next));
}

TraceColumns::Edge TraceColumns::EdgeAt(double seconds, std::int64_t from) const {
    const std::int64_t next = m_recording.FirstFrom(seconds, from);
    if (next == m_recording.Begin() || next == m_recording.End() || m_recording.IsBreak(next))
        return {next, 0.0, false};
    const double before = m_recording.Seconds(next - 1);
    return {next, (seconds - before) / (m_recording.Seconds(next) - before), true};
}

double TraceColumns::ValueAt(const Edge& edge, int trace) const {
    const double before = m_recording.Value(trace, edge.next - 1);
    return before * (1.0 - edge.share) + m_recording.Value(trace, edge.next) * edge.share;
}

int TraceColumns::LineThrough(int trace, std::int64_t begin, std::int64_t end,
                              std::vector<ColumnSpan>& spans) const {
    const auto includeCrossing = [&](ColumnSpan& span, const Edge& edge) {
        if (edge.isCrossed && edge.next > begin && edge.next < end) span.Include(ValueAt(edge, trace));
    };
    spans.clear();
    const auto after = std::ranges::upper_bound(m_edges, begin, {}, &Edge::next);
    const auto first = after == m_edges.begin() ? after : after - 1;
    ColumnSpan atEdge;  // the value between two columns belongs to both
    includeCrossing(atEdge, *first);
    for (auto edge = first; edge + 1 < m_edges.end() && edge->next < end; ++edge) {
        ColumnSpan span = atEdge;
        const std::int64_t from = std::max(edge->next, begin);
        const std::int64_t until = std::min((edge + 1)->next, end);
        if (from < until) {
            const SamplePiece::Extremes extremes = m_recording.ExtremesOf(trace, from, until);
            span.Include(extremes.lowest);
            span.Include(extremes.highest);
        }
        atEdge = {};
        includeCrossing(atEdge, *(edge + 1));
        if (!atEdge.IsEmpty()) span.Include(atEdge.lowest);
        spans.push_back(span);
    }
    return m_first + static_cast<int>(first - m_edges.begin());
}

}  // namespace plotvane
