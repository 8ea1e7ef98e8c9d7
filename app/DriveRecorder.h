#pragma once

#include <cstdint>
#include <string>

#include "history/ChartColumns.h"
#include "history/SampleRecorder.h"
#include "link/SampleKeeper.h"

namespace plotvane {

// Records the drive that the chart shows. The recording begins afresh with each run of a log and with another
// module. A live run that goes on after a stop goes on in the recording, after a gap.
class DriveRecorder : public SampleKeeper {
public:
    // `columns` learns which sample the chart has just drawn. `channelText` goes before the number of a
    // channel. Recording and columns must outlive this.
    DriveRecorder(Recording& recording, ChartColumns& columns, std::string channelText)
        : m_recording(recording), m_columns(columns), m_names(std::move(channelText)) {}

    // SampleKeeper. Where memory is missing, the recording ends and the rest of the program goes on. A step
    // in time that the chart would take for a jump is a gap here too.
    void MarkGap() override { m_recorder.MarkGap(); }
    void Take(double seconds, const Sample& sample, const CurrentModule& module) override;

private:
    // From the module's labels. PIDs and channels, which have none, are numbered as their boxes are.
    class Names : public FieldNames {
    public:
        explicit Names(std::string channelText) : m_channelText(std::move(channelText)) {}
        void Follow(const LabelTable& labels, bool arePids) {
            m_labels = &labels;
            m_arePids = arePids;
        }
        std::string NameOf(int group, int field) const override;

    private:
        const std::string m_channelText;
        const LabelTable* m_labels = nullptr;
        bool m_arePids = false;
    };

    void FollowRun(const RunState& state, const std::string& moduleName);
    void Record(double seconds, const Sample& sample, const CurrentModule& module);
    void TakeFields(double seconds, const Sample& sample);

    Recording& m_recording;
    ChartColumns& m_columns;
    Names m_names;
    SampleRecorder m_recorder{m_recording, m_names};
    std::uint32_t m_generation = 0;  // of the run that is recorded; 0 for none
    bool m_isLog = false;
    double m_lastSeconds = 0.0;
};

}  // namespace plotvane
