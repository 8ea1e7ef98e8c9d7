#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "history/SamplePiece.h"
#include "model/FieldSlot.h"

namespace plotvane {

// What a trace shows during a stretch of the recording. Texts are Windows-1252.
struct RecordedTrace {
    bool isActive = false;
    int group = 0;  // measuring group or PID; 0 for a channel of the ten-channel layout
    int field = 0;
    bool isRatio = false;  // the air/fuel ratio is shown in place of lambda
    std::string unit;
    std::string name;    // from the labels; empty where they have none
    double lower = 0.0;  // the limits of its scale
    double upper = 0.0;

    // Whether two traces show the same thing, whatever its name and limits.
    bool ShowsSameAs(const RecordedTrace& other) const;

    bool operator==(const RecordedTrace&) const = default;
};
using RecordedTraces = std::array<RecordedTrace, kSlotCount>;

// Samples between two changes of what the traces show or of their limits.
struct Stretch {
    std::int64_t first = 0;  // the number of its first sample
    RecordedTraces traces;
};

// The drive so far: every sample that the chart got, with its time. Memory is taken in pieces of some two
// thousand samples and ends at some 16 MB, which hold two hours at twenty samples a second; then the oldest
// samples go. Samples are numbered from 0 and keep their number; traces are 0..11. Values and times are
// always finite: a value that is no number is recorded as 0, a time that is none (or further than 30 years
// from 0) as that of the sample before.
//
// Time never runs back here. If the given time does (in a log put together by hand), the recording continues
// from its own last time and follows the steps of the given time from there.
class Recording {
public:
    using Values = std::array<double, kSlotCount>;

    static constexpr int kMostPieces = 72;  // 147,456 samples in 15.9 MB
    static constexpr int kMostStretches = 256;
    static constexpr double kFarthestSeconds = 1e9;

    // Forgets everything. The title says what is recorded from now on.
    void Begin(std::string_view title);
    const std::string& Title() const { return m_title; }

    // Counts the calls of Begin. A sample number holds only for the run in which it was asked for.
    std::uint32_t Run() const { return m_run; }

    // The next sample begins a stretch in which the traces show this. Where one of them shows something else
    // than before, no line joins the sample to the one before it.
    void BeginStretch(const RecordedTraces& traces);

    // No line joins the next sample to the one before it.
    void MarkGap() { m_breakIsDue = true; }

    // Adds a sample. `seconds` is its time, `drawn` has a bit for each trace that the chart has drawn. False,
    // until the next Begin, when the system has no memory left; what was recorded stays.
    bool Add(double seconds, const Values& values, std::uint16_t drawn);

    // Ends the recording until the next Begin, as if there had been no memory for a sample.
    void GiveUp() { m_hasEnded = true; }
    bool HasEnded() const { return m_hasEnded; }

    // The samples that are kept: Begin() is the first, End() one past the last.
    std::int64_t Begin() const { return m_begin; }
    std::int64_t End() const { return m_end; }
    bool IsEmpty() const { return m_begin == m_end; }

    // Of a sample that is kept.
    double Seconds(std::int64_t sample) const { return PieceOf(sample).Seconds(PlaceOf(sample)); }
    double Value(int trace, std::int64_t sample) const {
        return PieceOf(sample).Value(trace, PlaceOf(sample));
    }
    bool IsDrawn(int trace, std::int64_t sample) const;
    bool IsBreak(std::int64_t sample) const { return PieceOf(sample).IsBreak(PlaceOf(sample)); }
    const Stretch& StretchOf(std::int64_t sample) const;

    // Of all that are kept; oldest first.
    const std::vector<Stretch>& Stretches() const { return m_stretches; }

    // The first sample whose time is not before `seconds`; End() if there is none. The second form looks from
    // a sample on, and is quick where the answer is near it.
    std::int64_t FirstFrom(double seconds) const { return FirstFrom(seconds, m_begin); }
    std::int64_t FirstFrom(double seconds, std::int64_t sample) const;

    // The last sample whose time is not after `seconds`; Begin() if all are. There must be one.
    std::int64_t LastUntil(double seconds) const;

    // The lowest and the highest value among the samples from `begin` to before `end`; at least one.
    SamplePiece::Extremes ExtremesOf(int trace, std::int64_t begin, std::int64_t end) const;

private:
    static int PlaceOf(std::int64_t sample) { return static_cast<int>(sample % SamplePiece::kSamples); }
    const SamplePiece& PieceOf(std::int64_t sample) const {
        return *m_pieces[static_cast<std::size_t>((sample - m_firstPiece) / SamplePiece::kSamples)];
    }

    bool MakeRoom();
    bool AddPiece();
    bool AddStretch(const RecordedTraces& traces);
    void DropSamplesBefore(std::int64_t sample);
    double TimeOnAxis(double seconds);

    std::string m_title;
    std::uint32_t m_run = 0;
    std::vector<std::unique_ptr<SamplePiece>> m_pieces;  // oldest first
    std::vector<Stretch> m_stretches;
    std::int64_t m_firstPiece = 0;  // the number of the first sample in the oldest piece
    std::int64_t m_begin = 0;
    std::int64_t m_end = 0;
    double m_lastSeconds = 0.0;
    double m_axisOffset = 0.0;  // from the given time to that of the recording
    bool m_breakIsDue = false;
    bool m_hasEnded = false;
};

}  // namespace plotvane
