#include "history/SamplePiece.h"

namespace plotvane {

void SamplePiece::Add(int at, double seconds, const std::array<double, kSlotCount>& values,
                      std::uint16_t drawn, bool isBreak) {
    m_seconds[Index(at)] = seconds;
    for (int trace = 0; trace < kSlotCount; ++trace) m_values[Index(trace)][Index(at)] = values[Index(trace)];
    m_drawn[Index(at)] = drawn;
    m_breaks[Index(at)] = isBreak;

    const int added = at + 1;
    if (added % kSmallRun == 0) SumUpSmallRun(added - kSmallRun);
    if (added % kLargeRun == 0) SumUpLargeRun(added - kLargeRun);
    if (added == kSamples) SumUpAll();
}

SamplePiece::Extremes SamplePiece::ExtremesOf(int trace, int begin, int end) const {
    if (begin == 0 && end == kSamples) return OfAll(trace);
    const auto& values = m_values[Index(trace)];
    Extremes found{values[Index(begin)], values[Index(begin)]};
    while (begin < end) {
        if (begin % kLargeRun == 0 && end - begin >= kLargeRun) {
            found.Include(OfLargeRun(trace, begin));
            begin += kLargeRun;
        } else if (begin % kSmallRun == 0 && end - begin >= kSmallRun) {
            found.Include(OfSmallRun(trace, begin));
            begin += kSmallRun;
        } else {
            const int until = std::min(end, (begin / kSmallRun + 1) * kSmallRun);
            for (; begin < until; ++begin) found.Include({values[Index(begin)], values[Index(begin)]});
        }
    }
    return found;
}

SamplePiece::Extremes SamplePiece::OfSmallRun(int trace, int at) const {
    const Places<std::uint8_t>& places = m_ofSmall[Index(trace)][Index(at / kSmallRun)];
    return {Value(trace, at + places.lowest), Value(trace, at + places.highest)};
}

SamplePiece::Extremes SamplePiece::OfLargeRun(int trace, int at) const {
    const Places<std::uint8_t>& places = m_ofLarge[Index(trace)][Index(at / kLargeRun)];
    return {Value(trace, at + places.lowest), Value(trace, at + places.highest)};
}

SamplePiece::Extremes SamplePiece::OfAll(int trace) const {
    const Places<std::uint16_t>& places = m_ofAll[Index(trace)];
    return {Value(trace, places.lowest), Value(trace, places.highest)};
}

// Takes the samples `lowest` and `highest` of the piece into a sum, where they are beyond what it has.
template <typename Place>
void SamplePiece::Widen(int trace, Places<Place>& sum, int sumBegin, int lowest, int highest) {
    if (Value(trace, lowest) < Value(trace, sumBegin + sum.lowest))
        sum.lowest = static_cast<Place>(lowest - sumBegin);
    if (Value(trace, highest) > Value(trace, sumBegin + sum.highest))
        sum.highest = static_cast<Place>(highest - sumBegin);
}

void SamplePiece::SumUpSmallRun(int begin) {
    for (int trace = 0; trace < kSlotCount; ++trace) {
        Places<std::uint8_t> sum{0, 0};
        for (int at = begin + 1; at < begin + kSmallRun; ++at) Widen(trace, sum, begin, at, at);
        m_ofSmall[Index(trace)][Index(begin / kSmallRun)] = sum;
    }
}

void SamplePiece::SumUpLargeRun(int begin) {
    for (int trace = 0; trace < kSlotCount; ++trace) {
        Places<std::uint8_t> sum{0, 0};
        for (int run = begin; run < begin + kLargeRun; run += kSmallRun) {
            const Places<std::uint8_t>& small = m_ofSmall[Index(trace)][Index(run / kSmallRun)];
            Widen(trace, sum, begin, run + small.lowest, run + small.highest);
        }
        m_ofLarge[Index(trace)][Index(begin / kLargeRun)] = sum;
    }
}

void SamplePiece::SumUpAll() {
    for (int trace = 0; trace < kSlotCount; ++trace) {
        Places<std::uint16_t> sum{0, 0};
        for (int run = 0; run < kSamples; run += kLargeRun) {
            const Places<std::uint8_t>& large = m_ofLarge[Index(trace)][Index(run / kLargeRun)];
            Widen(trace, sum, 0, run + large.lowest, run + large.highest);
        }
        m_ofAll[Index(trace)] = sum;
    }
}

}  // namespace plotvane
