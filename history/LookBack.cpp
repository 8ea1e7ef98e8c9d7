#include "history/LookBack.h"

#include <algorithm>
#include <cmath>

#include "history/TraceRuns.h"

namespace plotvane {
namespace {

constexpr double kSecondsAtFirst = 60.0;
constexpr int kNearPx = 3;
constexpr std::int64_t kFewestSamples = 10;  // that fill the view
constexpr double kSecondsOfOne = 1.0;        // where there is no other to go by

}  // namespace

LookBack::LookBack(const Recording& recording) : m_recording(recording) {
    StartOver();
}

bool LookBack::Refresh() {
    const bool isNew = m_run != m_recording.Run() || (m_wasEmpty && !m_recording.IsEmpty());
    if (isNew) StartOver();
    if (!isNew && m_end == m_recording.End() && m_hadEnded == m_recording.HasEnded()) return false;
    m_end = m_recording.End();
    m_hadEnded = m_recording.HasEnded();
    if (m_recording.IsEmpty()) return true;
    m_view.SetLimits({m_recording.Seconds(m_recording.Begin()), m_recording.Seconds(m_end - 1)});
    // Samples that cursors stand on may have been dropped.
    if (m_fixed < m_recording.Begin()) m_fixed.reset();
    if (!m_fixed || m_second < m_recording.Begin()) m_second.reset();
    return true;
}

void LookBack::StartOver() {
    const int width = m_view.Width();
    m_view = {};
    m_view.SetWidth(width);
    m_run = m_recording.Run();
    m_fixed.reset();
    m_second.reset();
    m_front.reset();
    m_hidden = 0;
    m_end = m_recording.End();
    m_wasEmpty = m_recording.IsEmpty();
    if (m_wasEmpty) return;
    for (int trace = 0; trace < kSlotCount; ++trace) {
        if (!m_recording.IsDrawn(trace, m_end - 1)) ToggleHidden(trace);
    }
    m_view.SetLimits({m_recording.Seconds(m_recording.Begin()), m_recording.Seconds(m_end - 1)});
    m_view.ShowLatest(kSecondsAtFirst);
}

void LookBack::ZoomAbout(double column, double factor) {
    m_view.ZoomAbout(column, factor, TimeOfTenSamplesAbout(m_view.SecondsAt(column)));
}

void LookBack::ZoomAboutCursor(double factor) {
    const double column = CursorColumn().value_or(-1.0);
    const bool isInView = column >= 0.0 && column <= m_view.Width();
    ZoomAbout(isInView ? column : m_view.Width() / 2.0, factor);
}

// Gaps left out, which would make it as long as themselves.
double LookBack::TimeOfTenSamplesAbout(double seconds) const {
    if (m_recording.IsEmpty()) return kSecondsOfOne;
    const std::int64_t middle = m_recording.LastUntil(seconds);
    const std::int64_t begin = std::max(middle - kFewestSamples, m_recording.Begin());
    const std::int64_t end = std::min(middle + kFewestSamples + 1, m_recording.End());
    double joined = 0.0;
    int steps = 0;
    for (std::int64_t sample = begin + 1; sample < end; ++sample) {
        if (m_recording.IsBreak(sample)) continue;
        joined += m_recording.Seconds(sample) - m_recording.Seconds(sample - 1);
        ++steps;
    }
    return steps == 0 ? kSecondsOfOne : joined / steps * (kFewestSamples - 1);
}

std::int64_t LookBack::SampleAt(int column) const {
    return std::max(m_recording.FirstFrom(m_view.EndOfColumn(column)) - 1, m_recording.Begin());
}

void LookBack::Fix(int column) {
    if (m_recording.IsEmpty()) return;
    const bool isNear = m_fixed && std::abs(*CursorColumn() - column) <= kNearPx;
    m_second.reset();
    m_fixed.reset();
    if (!isNear) m_fixed = SampleAt(column);
}

void LookBack::FixSecond(int column) {
    if (!m_fixed) return Fix(column);
    m_second = SampleAt(column);
}

std::optional<std::int64_t> LookBack::Stepped(std::optional<std::int64_t> from, std::int64_t samples) {
    if (m_recording.IsEmpty()) return std::nullopt;
    const std::int64_t sample = from ? *from + samples : *ToldSample();
    const std::int64_t moved = std::clamp(sample, m_recording.Begin(), m_recording.End() - 1);
    m_view.Reveal(m_recording.Seconds(moved));
    return moved;
}

void LookBack::StepCursor(std::int64_t samples) {
    m_fixed = Stepped(m_fixed, samples);
}

void LookBack::StepSecond(std::int64_t samples) {
    if (!m_fixed) return StepCursor(samples);
    m_second = Stepped(m_second ? m_second : m_fixed, samples);
}

void LookBack::ToggleFixed() {
    if (!m_fixed) return StepCursor(0);
    m_second.reset();
    m_fixed.reset();
}

void LookBack::MoveCursor(int columns) {
    StepCursor(SamplesTo(m_fixed, columns));
}

void LookBack::MoveSecond(int columns) {
    StepSecond(SamplesTo(m_second ? m_second : m_fixed, columns));
}

std::int64_t LookBack::SamplesTo(std::optional<std::int64_t> from, int columns) const {
    if (!from) return 0;
    const double seconds = m_recording.Seconds(*from) + columns * m_view.Length() / m_view.Width();
    const std::int64_t samples = m_recording.LastUntil(seconds) - *from;
    return columns < 0 ? std::min<std::int64_t>(samples, -1) : std::max<std::int64_t>(samples, 1);
}

std::optional<std::int64_t> LookBack::Cursor() const {
    if (m_fixed || !m_pointer || m_recording.IsEmpty()) return m_fixed;
    return SampleAt(*m_pointer);
}

std::optional<double> LookBack::CursorColumn() const {
    if (m_fixed) return m_view.ColumnOf(m_recording.Seconds(*m_fixed));
    if (!m_pointer) return std::nullopt;
    return *m_pointer;
}

std::optional<std::int64_t> LookBack::ToldSample() const {
    if (m_recording.IsEmpty()) return std::nullopt;
    return Cursor().value_or(SampleAt(m_view.Width() - 1));
}

LookBack::SampleRange LookBack::InView() const {
    return {m_recording.FirstFrom(m_view.Begin()),
            m_recording.FirstFrom(m_view.EndOfColumn(m_view.Width() - 1))};
}

void LookBack::ToggleFront(int trace) {
    if (m_front == trace) {
        m_front.reset();
    } else {
        m_front = trace;
        if (IsHidden(trace)) ToggleHidden(trace);
    }
}

bool LookBack::IsShown(int trace) const {
    const auto sample = ToldSample();
    return sample && !IsHidden(trace) && ShownAt(m_recording, trace, *sample);
}

// Goes round through a place for none.
void LookBack::StepFront(int step) {
    constexpr int kPlaces = kSlotCount + 1;
    int place = m_front.value_or(kSlotCount);
    for (int i = 0; i < kPlaces; ++i) {
        place = (place + step + kPlaces) % kPlaces;
        if (place == kSlotCount || IsShown(place)) break;
    }
    m_front.reset();
    if (place != kSlotCount) m_front = place;
}

std::optional<int> LookBack::ScaleTrace() const {
    if (m_front && IsShown(*m_front)) return m_front;
    if (IsShown(m_preferred)) return m_preferred;
    for (int trace = 0; trace < kSlotCount; ++trace) {
        if (IsShown(trace)) return trace;
    }
    return std::nullopt;
}

}  // namespace plotvane
