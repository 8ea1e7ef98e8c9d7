#include "history/SampleRecorder.h"

#include <algorithm>
#include <cstring>

namespace plotvane {
namespace {

// What the chart has for a channel.
constexpr double kChannelLower = -1.0;
constexpr double kChannelUpper = 256.0;

// Two texts of the same length, which is from one to two times that of the chunk.
template <typename Chunk>
bool HaveSameEnds(std::string_view one, std::string_view other) {
    const auto isSame = [&](std::size_t at) {
        Chunk chunk{};
        Chunk otherChunk{};
        std::memcpy(&chunk, one.data() + at, sizeof chunk);
        std::memcpy(&otherChunk, other.data() + at, sizeof otherChunk);
        return chunk == otherChunk;
    };
    return isSame(0) && isSame(one.size() - sizeof(Chunk));
}

// Units have a few letters; twelve calls of the library, or a loop, would cost more than the rest of a
// sample.
bool IsSameText(std::string_view one, std::string_view other) {
    if (one.size() != other.size()) return false;
    if (one.empty()) return true;
    if (one.size() > 8) return one == other;
    if (one.size() >= 4) return HaveSameEnds<std::uint32_t>(one, other);
    if (one.size() >= 2) return HaveSameEnds<std::uint16_t>(one, other);
    return one[0] == other[0];
}

bool IsStillShown(const ShownField& field, const RecordedTrace& trace) {
    return field.isActive == trace.isActive && field.group == trace.group && field.field == trace.field &&
           field.isRatio == trace.isRatio && field.lower == trace.lower && field.upper == trace.upper &&
           IsSameText(field.unit, trace.unit);
}

}  // namespace

ShownFields FieldsOfSlots(const SlotTable& slots, const ModuleScaling& ranges, std::uint16_t airFuelOn) {
    ShownFields fields;
    for (int slot = 0; slot < kSlotCount; ++slot) {
        const FieldSlot& from = slots[slot];
        if (!from.IsActive()) continue;
        const ScaleRange range = ranges.RangeOf(from.group, from.field);
        const bool isRatio = (airFuelOn >> slot & 1) != 0;
        fields[static_cast<std::size_t>(slot)] = {true,      from.group,        from.field,       isRatio,
                                                  from.unit, double(range.min), double(range.max)};
    }
    return fields;
}

Recording::Values ValuesOfSlots(const SlotTable& slots) {
    Recording::Values values;
    std::ranges::transform(slots.slots, values.begin(), &FieldSlot::value);
    return values;
}

ShownFields FieldsOfChannels() {
    ShownFields fields;
    for (int channel = 0; channel < kChannelCount; ++channel)
        fields[static_cast<std::size_t>(channel)] = {true,         0, channel, false, {}, kChannelLower,
                                                     kChannelUpper};
    return fields;
}

Recording::Values ValuesOfChannels(const SlotTable& slots) {
    Recording::Values values{};
    std::ranges::copy(slots.channelValues, values.begin());
    return values;
}

void SampleRecorder::Begin(std::string_view title, Clock clock) {
    m_recording.Begin(title);
    m_clock = clock;
    m_isFirst = true;
}

void SampleRecorder::Take(double seconds, const ShownFields& fields, const Recording::Values& values,
                          std::uint16_t drawn) {
    if (m_recording.HasEnded()) return;
    if (m_isFirst) m_origin = m_clock == Clock::FromFirstSample ? seconds : 0.0;
    if (m_isFirst || !std::ranges::equal(fields, m_traces, IsStillShown)) BeginStretch(fields);
    m_isFirst = false;
    m_recording.Add(seconds - m_origin, values, drawn);
}

void SampleRecorder::BeginStretch(const ShownFields& fields) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const ShownField& field = fields[i];
        std::string name = field.isActive ? m_names.NameOf(field.group, field.field) : std::string();
        m_traces[i] = {field.isActive,          field.group,     field.field, field.isRatio,
                       std::string(field.unit), std::move(name), field.lower, field.upper};
    }
    m_recording.BeginStretch(m_traces);
}

}  // namespace plotvane
