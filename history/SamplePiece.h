#pragma once

#include <algorithm>
#include <array>
#include <bitset>
#include <cstdint>

#include "model/FieldSlot.h"

namespace plotvane {

// A run of consecutive samples of twelve traces, with the places of the lowest and the highest value of every
// 16, every 256 and all of them, so that the extremes of a long run are found without reading each sample.
// The places are kept, not the values: they cost a byte instead of eight, and the values stay exact.
//
// Samples are 0..kSamples - 1, traces 0..11. A piece is made without being filled: only what has been added
// may be asked for.
class SamplePiece {
public:
    static constexpr int kSamples = 2048;
    static constexpr int kSmallRun = 16;
    static constexpr int kLargeRun = 256;

    // `at` is one more than in the call before, or 0 for the first sample. `drawn` has a bit a trace.
    void Add(int at, double seconds, const std::array<double, kSlotCount>& values, std::uint16_t drawn,
             bool isBreak);

    double Seconds(int at) const { return m_seconds[Index(at)]; }
    double Value(int trace, int at) const { return m_values[Index(trace)][Index(at)]; }
    std::uint16_t Drawn(int at) const { return m_drawn[Index(at)]; }

    // No line joins this sample to the one before it.
    bool IsBreak(int at) const { return m_breaks[Index(at)]; }

    struct Extremes {
        double lowest;
        double highest;

        void Include(const Extremes& other) {
            lowest = std::min(lowest, other.lowest);
            highest = std::max(highest, other.highest);
        }
    };

    // Over the samples from `begin` to before `end`, at least one, all of which must have been added.
    Extremes ExtremesOf(int trace, int begin, int end) const;

private:
    template <typename Place>
    struct Places {
        Place lowest;
        Place highest;
    };
    static constexpr int kPadding = 8;
    static constexpr int kSmallRuns = kSamples / kSmallRun;
    static constexpr int kLargeRuns = kSamples / kLargeRun;

    static constexpr std::size_t Index(int number) { return static_cast<std::size_t>(number); }

    Extremes OfSmallRun(int trace, int at) const;
    Extremes OfLargeRun(int trace, int at) const;
    Extremes OfAll(int trace) const;
    void SumUpSmallRun(int begin);
    void SumUpLargeRun(int begin);
    void SumUpAll();
    template <typename Place>
    void Widen(int trace, Places<Place>& sum, int sumBegin, int lowest, int highest);

    std::array<double, kSamples> m_seconds;
    // A little longer than needed: columns that lie a power of two apart would share a few lines of the
    // cache.
    std::array<std::array<double, kSamples + kPadding>, kSlotCount> m_values;
    std::array<std::uint16_t, kSamples> m_drawn;
    std::bitset<kSamples> m_breaks;

    // Places count from the begin of the run.
    std::array<std::array<Places<std::uint8_t>, kSmallRuns>, kSlotCount> m_ofSmall;
    std::array<std::array<Places<std::uint8_t>, kLargeRuns>, kSlotCount> m_ofLarge;
    std::array<Places<std::uint16_t>, kSlotCount> m_ofAll;
};

}  // namespace plotvane
