#pragma once

#include <array>
#include <limits>
#include <optional>
#include <string>

#include "model/LoopRun.h"
#include "model/MessagePump.h"
#include "plot/binding/Sample.h"
#include "plot/binding/Views.h"

namespace plotvane {

// Time stamps of a log row in seconds, one a chart row; 0 where the row has none.
using LogStamps = std::array<double, kSlotRows>;

// The first stamp of a row that is not 0; 0 if it has none.
double FirstStamp(const LogStamps& stamps);

constexpr double kJumpSeconds = 5.0;     // a longer step in log time is a gap, not a wait
constexpr double kUnstampedStep = 0.25;  // seconds from the row before to a row without a stamp

// The time axis: the pace of a replay, and the gaps that a jump in time or a pause leaves in the chart.
class ReplayPacing {
public:
    ReplayPacing(Sample& sample, const Views& views, MessagePump& pump)
        : m_sample(sample), m_views(views), m_pump(pump) {}

    // A log starts from its first row.
    void Restart();

    // To be called before each row is read, with the stamps of the row before it: waits until that row's time
    // is over, by the replay period, and shows its stamp. True if the replay must halt now: if it is not to
    // run by itself, it halts once one row is drawn. While the user steps through the rows of a paused
    // replay, it waits for no time but for the next step.
    bool ReplayStep(const LogStamps& stamps, const LoopRun& run);

    // Holds until the user resumes, steps or stops. A hold that began while data flowed leaves a gap when it
    // is resumed; a step leaves none, because the rows follow each other in the log. A call from a handler
    // that an older hold has dispatched returns at once, and the older call goes on waiting, for this run:
    // however often the user resumes and pauses, the stack holds one wait.
    void WaitWhilePaused(const LoopRun& run);

private:
    bool HoldAfterLastStep(const LoopRun& run);
    bool WaitForStep(double seconds, const LoopRun& run);
    double DueMs(double seconds) const;

    static constexpr double kNever = -std::numeric_limits<double>::infinity();  // so the first step is due

    Sample& m_sample;
    Views m_views;
    MessagePump& m_pump;
    LogStamps m_previous{};
    double m_stepMs = kNever;  // clock at which the last step was due
    int m_rowsReplayed = 0;
    std::string m_text;
    std::optional<LoopRun> m_heldRun;  // by the newest hold
    bool m_isWaiting = false;          // a hold is on the stack
};

}  // namespace plotvane
