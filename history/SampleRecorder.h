#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "history/Recording.h"
#include "model/FieldSlot.h"
#include "scaling/ModuleScaling.h"

namespace plotvane {

// Where the names of fields come from. Groups and fields are those of the records; a channel of the
// ten-channel layout has group 0. Empty for a field without a name.
struct FieldNames {
    virtual ~FieldNames() = default;
    virtual std::string NameOf(int group, int field) const = 0;
};

// What a slot shows while a sample is taken. The unit must live until the call is over.
struct ShownField {
    bool isActive = false;
    int group = 0;
    int field = 0;
    bool isRatio = false;
    std::string_view unit;
    double lower = 0.0;
    double upper = 0.0;
};
using ShownFields = std::array<ShownField, kSlotCount>;

// The twelve slots. `airFuelOn` has a bit for each slot whose A/F button is pressed in.
ShownFields FieldsOfSlots(const SlotTable& slots, const ModuleScaling& ranges, std::uint16_t airFuelOn);
Recording::Values ValuesOfSlots(const SlotTable& slots);

// The ten channels, as the traces 0..9.
ShownFields FieldsOfChannels();
Recording::Values ValuesOfChannels(const SlotTable& slots);

// Puts the samples of the drive into the recording, and begins a stretch where the slots, their units or
// their limits have changed. A sample that changes nothing allocates nothing.
class SampleRecorder {
public:
    enum class Clock { OfLog, FromFirstSample };

    // Both must outlive this.
    SampleRecorder(Recording& recording, const FieldNames& names) : m_recording(recording), m_names(names) {}

    // Begins with a run of a log or with another module. Drops what was recorded before and reads the names
    // again.
    void Begin(std::string_view title, Clock clock);

    // A pause, or a jump in time.
    void MarkGap() { m_recording.MarkGap(); }

    // `seconds` is the time of the log, or that of any steady clock. `drawn` has a bit for each trace that
    // the chart has drawn.
    void Take(double seconds, const ShownFields& fields, const Recording::Values& values,
              std::uint16_t drawn);

private:
    void BeginStretch(const ShownFields& fields);

    Recording& m_recording;
    const FieldNames& m_names;
    Clock m_clock = Clock::OfLog;
    bool m_isFirst = true;
    double m_origin = 0.0;
    RecordedTraces m_traces;
};

}  // namespace plotvane
