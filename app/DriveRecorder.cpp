#include "app/DriveRecorder.h"

#include <new>

#include "base/Numbers.h"
#include "plot/binding/ReplayPacing.h"

namespace plotvane {

// Fields count from 0, their labels from 1.
std::string DriveRecorder::Names::NameOf(int group, int field) const {
    std::string name;
    if (group == 0) {
        name = m_channelText;
        AppendDecimal(name, field + 1);
        return name;
    }
    name = m_labels->FieldName(group, field + 1);
    const std::string& second = m_labels->FieldSecondText(group, field + 1);
    if (!name.empty() && !second.empty()) name += ' ';
    name += second;
    if (name.empty() && m_arePids) {
        name = "PID ";
        AppendDecimal(name, group);
    }
    return name;
}

void DriveRecorder::Take(double seconds, const Sample& sample, const CurrentModule& module) {
    try {
        Record(seconds, sample, module);
    } catch (const std::bad_alloc&) {
        m_recording.GiveUp();
    }
    const std::int64_t number = m_recording.HasEnded() ? -1 : m_recording.End() - 1;
    m_columns.AddSample(number, sample.state.pixelShift);
}

void DriveRecorder::Record(double seconds, const Sample& sample, const CurrentModule& module) {
    m_names.Follow(module.Labels(), sample.state.obdFile);
    FollowRun(sample.state, module.Name());
    if (seconds - m_lastSeconds > kJumpSeconds) m_recorder.MarkGap();
    m_lastSeconds = seconds;
    TakeFields(seconds, sample);
}

void DriveRecorder::FollowRun(const RunState& state, const std::string& moduleName) {
    const bool isSameRun = state.generation == m_generation;
    const bool isSameModule = moduleName == m_recording.Title();
    if (isSameRun && (isSameModule || m_recording.HasEnded())) return;
    const bool goesOn = m_generation != 0 && isSameModule && !m_isLog && !state.logMode;
    m_generation = state.generation;
    m_isLog = state.logMode;
    if (goesOn) {
        m_recorder.MarkGap();
    } else {
        m_columns.Forget();
        m_recorder.Begin(moduleName,
                         m_isLog ? SampleRecorder::Clock::OfLog : SampleRecorder::Clock::FromFirstSample);
    }
}

void DriveRecorder::TakeFields(double seconds, const Sample& sample) {
    if (sample.state.tenChannels) {
        m_recorder.Take(seconds, FieldsOfChannels(), ValuesOfChannels(sample.slots), sample.drawn);
    } else {
        m_recorder.Take(seconds, FieldsOfSlots(sample.slots, sample.ranges, sample.airFuelOn),
                        ValuesOfSlots(sample.slots), sample.drawn);
    }
}

}  // namespace plotvane
