#include "history/Recording.h"

#include <algorithm>
#include <cmath>
#include <new>

namespace plotvane {
namespace {

// The first of begin..end-1 that the condition does not hold for; end if there is none. It must hold for
// those before.
template <typename Condition>
std::int64_t FirstNot(const Condition& holds, std::int64_t begin, std::int64_t end) {
    while (begin < end) {
        const std::int64_t middle = begin + (end - begin) / 2;
        if (holds(middle)) {
            begin = middle + 1;
        } else {
            end = middle;
        }
    }
    return begin;
}

}  // namespace

bool RecordedTrace::ShowsSameAs(const RecordedTrace& other) const {
    return isActive == other.isActive && group == other.group && field == other.field &&
           isRatio == other.isRatio && unit == other.unit;
}

void Recording::Begin(std::string_view title) {
    const std::uint32_t run = m_run + 1;
    *this = {};
    m_run = run;
    m_title = title;
}

void Recording::BeginStretch(const RecordedTraces& traces) {
    const auto showsSame = [](const RecordedTrace& one, const RecordedTrace& other) {
        return one.ShowsSameAs(other);
    };
    if (m_stretches.empty() || !std::ranges::equal(traces, m_stretches.back().traces, showsSame))
        m_breakIsDue = true;
    if (!m_hasEnded) m_hasEnded = !AddStretch(traces);
    if (m_stretches.size() > kMostStretches) DropSamplesBefore(m_stretches[1].first);
}

// A stretch without a sample is replaced.
bool Recording::AddStretch(const RecordedTraces& traces) try {
    Stretch stretch{m_end, traces};
    const bool isEmpty = !m_stretches.empty() && m_stretches.back().first == m_end;
    if (!isEmpty) m_stretches.emplace_back();
    m_stretches.back() = std::move(stretch);
    return true;
} catch (const std::bad_alloc&) {
    return false;
}

bool Recording::Add(double seconds, const Values& values, std::uint16_t drawn) {
    if (m_stretches.empty()) BeginStretch({});
    if (m_hasEnded || !MakeRoom()) return false;
    Values finite = values;
    for (double& value : finite) {
        if (!std::isfinite(value)) value = 0.0;
    }
    const double time = TimeOnAxis(seconds);
    m_pieces.back()->Add(PlaceOf(m_end), time, finite, drawn, m_breakIsDue);
    m_lastSeconds = time;
    m_breakIsDue = false;
    ++m_end;
    return true;
}

// Room for the next sample. The oldest piece is used again where there are enough.
bool Recording::MakeRoom() {
    if (PlaceOf(m_end) != 0) return true;
    if (m_pieces.size() < kMostPieces) return AddPiece();
    std::rotate(m_pieces.begin(), m_pieces.begin() + 1, m_pieces.end());
    m_firstPiece += SamplePiece::kSamples;
    DropSamplesBefore(m_firstPiece);
    return true;
}

bool Recording::AddPiece() try {
    // Not make_unique, which would fill it first.
    m_pieces.push_back(std::unique_ptr<SamplePiece>(new SamplePiece));
    return true;
} catch (const std::bad_alloc&) {
    m_hasEnded = true;
    return false;
}

void Recording::DropSamplesBefore(std::int64_t sample) {
    m_begin = std::max(m_begin, sample);
    const auto isOver = [&](const Stretch& next) { return next.first <= m_begin; };
    while (m_stretches.size() > 1 && isOver(m_stretches[1])) m_stretches.erase(m_stretches.begin());
}

double Recording::TimeOnAxis(double seconds) {
    // Written in this way, it also catches what is no number.
    if (!(std::abs(seconds) <= kFarthestSeconds)) return m_lastSeconds;
    if (m_end == 0) return seconds;
    if (seconds + m_axisOffset < m_lastSeconds) {
        m_axisOffset = m_lastSeconds - seconds;
        m_breakIsDue = true;
    }
    // The sum may be rounded to just before the sample that it stands on.
    return std::max(seconds + m_axisOffset, m_lastSeconds);
}

bool Recording::IsDrawn(int trace, std::int64_t sample) const {
    return (PieceOf(sample).Drawn(PlaceOf(sample)) >> trace & 1) != 0;
}

const Stretch& Recording::StretchOf(std::int64_t sample) const {
    const auto next = std::ranges::upper_bound(m_stretches, sample, {}, &Stretch::first);
    return next == m_stretches.begin() ? m_stretches.front() : *(next - 1);
}

std::int64_t Recording::FirstFrom(double seconds, std::int64_t sample) const {
    std::int64_t step = 1;
    std::int64_t end = sample;
    while (end < m_end && Seconds(end) < seconds) {
        sample = end + 1;
        end = std::min(end + step, m_end);
        step *= 2;
    }
    const auto isBefore = [&](std::int64_t one) { return Seconds(one) < seconds; };
    return FirstNot(isBefore, sample, std::max(sample, end));
}

std::int64_t Recording::LastUntil(double seconds) const {
    const auto isUntil = [&](std::int64_t sample) { return Seconds(sample) <= seconds; };
    return std::max(FirstNot(isUntil, m_begin, m_end) - 1, m_begin);
}

SamplePiece::Extremes Recording::ExtremesOf(int trace, std::int64_t begin, std::int64_t end) const {
    SamplePiece::Extremes found{Value(trace, begin), Value(trace, begin)};
    while (begin < end) {
        const int at = PlaceOf(begin);
        const std::int64_t count = std::min<std::int64_t>(end - begin, SamplePiece::kSamples - at);
        found.Include(PieceOf(begin).ExtremesOf(trace, at, at + static_cast<int>(count)));
        begin += count;
    }
    return found;
}

}  // namespace plotvane
