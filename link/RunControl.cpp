#include "link/RunControl.h"

#include "res/resource.h"

namespace plotvane {

// While it lives, a run is on the stack. The log is closed here and not at the end of each run: a run that
// was stopped during a wait cannot know whether a newer one has opened the log again.
class RunControl::OnStack {
public:
    explicit OnStack(RunControl& control) : m_control(control) {
        m_control.m_onStack = true;
        m_control.StayAwakeForData();
    }
    ~OnStack() {
        m_control.m_onStack = false;
        m_control.StayAwakeForData();
        m_control.m_log.Close();
    }
    OnStack(const OnStack&) = delete;
    OnStack& operator=(const OnStack&) = delete;

private:
    RunControl& m_control;
};

RunControl::RunControl(Sample& sample, const AcquisitionViews& views, CurrentModule& module,
                       AcquisitionLoop& loop, HostPipe& pipe, MessagePump& pump)
    : m_sample(sample),
      m_state(sample.state),
      m_panel(views.panel),
      m_buttons(views.buttons),
      m_window(views.window),
      m_module(module),
      m_loop(loop),
      m_keeper(views.keeper),
      m_pacing(sample, views, pump),
      m_live(pipe, pump),
      m_log(sample.state, m_pacing, views.window, pump) {}

void RunControl::StartLive() {
    m_state.logMode = false;
    m_state.restartAfterStop = false;
    m_state.playing = true;
    ShowState();
    Start();
}

void RunControl::Start() {
    m_state.endOfLog = false;
    m_state.firstSampleDrawn = false;
    if (!m_state.stopped) return;
    m_state.stopped = false;
    m_state.halted = false;
    m_state.rowsToStep = 0;
    ++m_state.generation;
    if (m_onStack) return StayAwakeForData();
    try {
        RunUntilStopped();
    } catch (...) {
        Stop();  // or the run would neither go on nor count as stopped, and no other could start
        throw;
    }
}

void RunControl::RunUntilStopped() {
    const OnStack onStack(*this);
    while (true) {
        const LoopRun run(m_state);
        const RunEnd end = Run(run);
        if (run.IsCurrent()) ActOn(end);
        if (run.IsCurrent() || m_state.stopped) return;
    }
}

// One run from its start to its end. A halt is not the end.
RunEnd RunControl::Run(const LoopRun& run) {
    m_sample.ranges.ForgetLoadedName();
    if (!m_state.logMode && !m_live.Open()) {
        m_window.ShowMessage(IDS_NO_EXCHANGE_FILE, IDS_CANNOT_RUN);
        return RunEnd::Closing;
    }
    RecordSource& source = m_state.logMode ? static_cast<RecordSource&>(m_log) : m_live;
    RunEnd end = m_loop.Run(source, run);
    while (end == RunEnd::Halted) {
        TogglePlaying();
        if (!m_state.playing) Hold(run);
        end = m_loop.Run(source, run);
    }
    return end;
}

// Kept on purpose: a malformed live record freezes the display. The run is over but does not count as
// stopped, so that nothing starts on a host that sends what nobody understands.
void RunControl::ActOn(RunEnd end) {
    switch (end) {
        case RunEnd::Stopped:
            Stop();
            break;
        case RunEnd::Closing:
            m_window.Close();
            break;
        case RunEnd::Halted:
        case RunEnd::Malformed:
        case RunEnd::Interrupted:
            break;
    }
}

void RunControl::Stop() {
    ++m_state.stops;
    if (m_state.stopped) return;
    m_state.stopped = true;
    if (m_state.logMode) {
        m_state.logMode = false;
        m_state.reopenLog = true;
        m_state.redrawRequest = true;
        m_panel.ShowElapsed("0.00");
    } else {
        m_state.restartAfterStop = true;
    }
    ShowState();
    SaveRanges();
}

// Before the first record, and after a malformed one, the ranges in memory belong to another module or to
// none, so there is nothing to save. A file that could not be read whole is not replaced: the ranges that the
// user has chosen since then are lost, and a message says so.
void RunControl::SaveRanges() {
    ModuleScaling& ranges = m_sample.ranges;
    if (m_module.Key() != ranges.LoadedName()) return;
    const bool saved = ranges.IsLoadedWhole() && ranges.SaveModuleScaling(m_module.Key()) == 0;
    if (!saved) m_window.ShowMessage(IDS_SCALING_NOT_SAVED, IDS_ERROR);
}

void RunControl::Pause() {
    if (m_log.IsOpening() || (m_state.reopenLog && !m_log.MayOpen())) return;
    TogglePlaying();
    if (m_state.restartAfterStop) {
        StartLive();
    } else if (m_state.reopenLog) {
        ReplayAgain();
    } else if (!m_state.playing) {
        Hold(LoopRun(m_state));
    }
}

void RunControl::ShowState() {
    m_buttons.Show(LookOf(m_state));
    StayAwakeForData();
}

// Nobody touches a key during a drive. A record that is malformed ends the data too.
void RunControl::StayAwakeForData() {
    m_window.StayAwake(m_onStack && !m_state.stopped && m_state.playing);
}

void RunControl::Hold(const LoopRun& run) {
    if (m_keeper) m_keeper->MarkGap();
    m_pacing.WaitWhilePaused(run);
}

void RunControl::StepRow() {
    if (m_onStack && m_state.logMode && !m_state.stopped && !m_state.playing) ++m_state.rowsToStep;
}

void RunControl::TogglePlaying() {
    m_state.playing = !m_state.playing;
    m_state.rowsToStep = 0;
    ShowState();
}

void RunControl::ReplayAgain() {
    if (OpenLog() == LogSource::Opening::Done) Replay();
}

bool RunControl::MayLoadLog() const {
    return !m_state.logMode && !m_state.hostRunning && m_log.MayOpen();
}

void RunControl::LoadLog() {
    if (!MayLoadLog()) return;  // the Enter key reaches the button even where it is hidden
    m_state.halted = true;
    m_state.obdFile = false;
    if (m_state.reopenLog) m_state.pauseKept = true;
    m_state.reopenLog = false;
    ShowState();
    switch (OpenLog()) {
        case LogSource::Opening::Done:
            m_sample.TakeMinimums();
            m_state.redrawRequest = true;
            Replay();
            break;
        case LogSource::Opening::NoLog:
            m_state.pauseKept = false;
            ShowState();
            break;
        case LogSource::Opening::BadHeader:
            break;
    }
}

LogSource::Opening RunControl::OpenLog() {
    const auto opening = m_log.Open(m_sample.slots);
    if (opening == LogSource::Opening::Done) {
        m_module.SetRawKey(m_log.ModuleName());
        m_module.SetLogFileName(m_log.FileName());
    }
    return opening;
}

void RunControl::Replay() {
    m_state.logMode = true;
    m_state.reopenLog = false;
    m_state.playing = true;
    ShowState();
    m_pacing.Restart();
    Start();
}

}  // namespace plotvane
