#include "plot/binding/ReplayPacing.h"

#include <algorithm>
#include <cmath>

#include "base/Numbers.h"
#include "model/Meanwhile.h"

namespace plotvane {
namespace {

constexpr double kLongestJumpWait = 1.0;  // the seconds that it waits instead
constexpr double kStepCostMs = 5.0;       // of the work that a row takes besides the wait
constexpr double kLatestMs = 50.0;        // a step that is later than this is not made up for
constexpr int kLongestSleepMs = 1000;     // a click ends any sleep

LogStamps::const_iterator FindStamp(const LogStamps& stamps) {
    return std::ranges::find_if(stamps, [](double seconds) { return seconds != 0.0; });
}

}  // namespace

double FirstStamp(const LogStamps& stamps) {
    const auto stamp = FindStamp(stamps);
    return stamp == stamps.end() ? 0.0 : *stamp;
}

void ReplayPacing::Restart() {
    m_previous.fill(0.0);
    m_stepMs = kNever;
    m_rowsReplayed = 0;
}

bool ReplayPacing::ReplayStep(const LogStamps& stamps, const LoopRun& run) {
    if (!HoldAfterLastStep(run)) return false;
    const auto stamp = FindStamp(stamps);
    const bool stamped = stamp != stamps.end();
    const double now = stamped ? *stamp : 0.0;
    const double before =
        stamped ? m_previous[static_cast<std::size_t>(stamp - stamps.begin())] : -kUnstampedStep;

    double step = now - before;
    if (step > kJumpSeconds) {
        m_views.chart.AppendGap(m_sample.values);
        step = std::min(step, kLongestJumpWait);
    }
    if (!WaitForStep(step, run)) return false;

    m_text.clear();
    AppendFixed(m_text, now, 2);
    m_views.panel.ShowElapsed(m_text);
    m_previous = stamps;
    return m_rowsReplayed++ == 1 && !m_sample.prefs.autorun && m_sample.state.rowsToStep == 0;
}

// The row that the user has asked for is drawn by now. False if the run ended during the hold.
bool ReplayPacing::HoldAfterLastStep(const LoopRun& run) {
    RunState& state = m_sample.state;
    if (state.rowsToStep == 0 || --state.rowsToStep > 0) return true;
    WaitWhilePaused(run);
    return !run.Ended();
}

// The next step counts from when this one was due, so a late wake-up does not slow the replay down. The user
// may change the speed during the wait. Messages are dispatched at least once in every step. False if the run
// ended during the wait.
bool ReplayPacing::WaitForStep(double seconds, const LoopRun& run) {
    const auto isDue = [&] { return m_sample.state.rowsToStep > 0 || m_pump.NowMs() >= DueMs(seconds); };
    do {
        const double leftMs = isDue() ? 0.0 : std::ceil(DueMs(seconds) - m_pump.NowMs());
        m_pump.SleepAndDispatch(static_cast<int>(std::clamp<double>(leftMs, 0.0, kLongestSleepMs)));
        // A newer replay may have begun. What this object remembers is then about that one.
        if (run.Ended()) return false;
    } while (!isDue());
    const double dueMs = DueMs(seconds);
    const bool isOnTime = m_sample.state.rowsToStep == 0 && m_pump.NowMs() - dueMs <= kLatestMs;
    m_stepMs = isOnTime ? dueMs : m_pump.NowMs();
    return true;
}

double ReplayPacing::DueMs(double seconds) const {
    return m_stepMs + std::max(0.0, m_sample.state.replayPeriodMs * seconds - kStepCostMs);
}

void ReplayPacing::WaitWhilePaused(const LoopRun& run) {
    RunState& state = m_sample.state;
    if (!run.Ended()) state.gapPending = true;
    state.halted = true;
    m_heldRun.emplace(run);
    if (m_isWaiting) return;
    {
        const Meanwhile waiting(m_isWaiting);
        while (!state.playing && state.rowsToStep == 0 && !m_heldRun->Ended())
            m_pump.SleepAndDispatch(kLongestSleepMs);
    }
    state.halted = false;
    if (state.rowsToStep > 0) return;  // the pause is not over, and its gap comes at its end
    if (!m_heldRun->Ended() && state.gapPending) m_views.chart.AppendGap(m_sample.values);
    state.gapPending = false;
}

}  // namespace plotvane
