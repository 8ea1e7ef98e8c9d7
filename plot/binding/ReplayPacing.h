#pragma once

#include <array>
#include <limits>
#include <optional>
#include <string>

#include "model/LoopRun.h"
#include "model/MessagePump.h"
#include "plot/binding/TracePlot.h"
#include "scaling/Prefs.h"

namespace plotvane {

// Time stamps of a log row in seconds, one a chart row; 0 where the row has none.
using LogStamps = std::array<double, kSlotRows>;

// The time axis: the pace of a replay, and the gaps that a jump in time or a pause leaves in the chart.
class ReplayPacing {
public:
    ReplayPacing(TracePlot& plot, MessagePump& pump, const Prefs& prefs)
        : m_plot(plot), m_pump(pump), m_prefs(prefs) {}

    // A log starts from its first row.
    void Restart();

    // Before each row is read: waits out the time between the two rows before it, by their stamps and the
    // replay period, and shows the later one. True if the replay is to halt now, for a log that must not run
    // by itself: once one row has been drawn.
    bool ReplayStep(const LogStamps& stamps, const LoopRun& run);

    // Holds until the user resumes or stops. A hold that began while data flowed leaves a gap when it is
    // resumed. Called from a handler that an older hold has dispatched, it returns at once, and the older
    // call waits on for this run: however often the user resumes and pauses, the stack holds one wait.
    void WaitWhilePaused(const LoopRun& run);

private:
    bool WaitForStep(double seconds, const LoopRun& run);
    double DueMs(double seconds) const;

    static constexpr double kNever = -std::numeric_limits<double>::infinity();  // so the first step is due

    TracePlot& m_plot;
    MessagePump& m_pump;
    const Prefs& m_prefs;
    LogStamps m_previous{};
    double m_stepMs = kNever;  // clock at which the last step was due
    int m_rowsReplayed = 0;
    std::string m_text;
    std::optional<LoopRun> m_heldRun;  // by the newest hold
    bool m_isWaiting = false;          // a hold is on the stack
};

}  // namespace plotvane
