#include "link/RunControl.h"

#include "model/Meanwhile.h"
#include "res/resource.h"

namespace plotvane {

RunControl::RunControl(TracePlot& plot, AcquisitionLoop& loop, ReplayPacing& pacing, CurrentModule& module,
                       LogSource& log, RunButtons& buttons, LoopOwner& owner)
    : m_state(plot.state),
      m_plot(plot),
      m_loop(loop),
      m_pacing(pacing),
      m_module(module),
      m_log(log),
      m_buttons(buttons),
      m_owner(owner) {}

void RunControl::Stop() {
    ++m_state.stops;
    if (!m_state.hostRunning && m_stopActive) {
        ShowStop(false);
        m_buttons.EnableStop(false);
        m_buttons.ShowPause(PauseImage::StartOver);
        m_buttons.EnablePause(true);
        m_state.reopenLog = true;
        m_plot.panel.ShowElapsed("0.00");
        m_state.redrawRequest = true;
    }
    if (m_state.stopped) return;
    m_state.stopped = true;
    if (m_state.hostRunning) {
        m_buttons.EnableStop(false);
        m_buttons.ShowPause(PauseImage::StartOver);
        m_buttons.EnablePause(true);
        m_state.restartAfterStop = true;
    } else {
        ShowStop(false);
        m_buttons.ShowPause(PauseImage::StartOver);
    }
    m_buttons.EnableLoad(true);
    m_buttons.ShowLoad(false);
    m_state.logMode = false;
    SaveRanges();
}

// Before the first record, or behind a malformed one, the ranges in memory belong to another module or to
// none, and there is nothing to save. And only a table that was read from this very file may replace it:
// where it could not be read, the ranges that the user has chosen since then are lost, and that is said.
void RunControl::SaveRanges() {
    ModuleScaling& ranges = m_plot.ranges;
    if (m_module.Key() != ranges.LoadedName()) return;
    const bool saved = ranges.IsLoadedWhole() && ranges.SaveModuleScaling(m_module.Key()) == 0;
    if (!saved) m_owner.ShowMessage(IDS_SCALING_NOT_SAVED, IDS_ERROR);
}

void RunControl::Pause() {
    if (m_isOpening || (m_state.reopenLog && !MayOpenLog())) return;
    m_state.playing = !m_state.playing;
    m_buttons.ShowPause(m_state.playing ? PauseImage::Pause : PauseImage::Resume);
    if (m_state.hostRunning && m_state.restartAfterStop) {
        RestartLive();
    } else if (!m_state.hostRunning && m_state.reopenLog) {
        ReplayAgain();
    } else if (!m_state.playing) {
        m_pacing.WaitWhilePaused(LoopRun(m_state));
    }
}

void RunControl::RestartLive() {
    m_state.logMode = false;
    m_state.restartAfterStop = false;
    m_state.playing = true;
    m_buttons.ShowPause(PauseImage::Pause);
    m_loop.Start();
}

void RunControl::ReplayAgain() {
    if (OpenLog() == Opening::Done) {
        Replay();
    } else {
        m_buttons.ShowPause(PauseImage::StartOver);
    }
}

void RunControl::LoadLog() {
    // The Enter key reaches the button also where it is hidden.
    if (m_state.logMode || m_state.hostRunning || !MayOpenLog()) return;
    m_state.halted = true;
    m_state.obdFile = false;
    ShowStop(false);
    if (m_state.reopenLog) {
        m_state.reopenLog = false;
        m_buttons.ShowPause(PauseImage::Idle);
        m_buttons.EnablePause(true);
    }
    switch (OpenLog()) {
        case Opening::Done:
            TakeScaleMinimums();
            m_state.redrawRequest = true;
            Replay();
            break;
        case Opening::NoLog:
            m_buttons.EnablePause(false);
            break;
        case Opening::BadHeader:
            break;
    }
}

// A close while the log was chosen or its header read makes it no log to play.
RunControl::Opening RunControl::OpenLog() {
    const Meanwhile opening(m_isOpening);
    const std::uint32_t stops = m_state.stops;
    if (m_log.OpenLogFile() != 1 || stops != m_state.stops) return Opening::NoLog;
    return ReadHeader() && stops == m_state.stops ? Opening::Done : Opening::BadHeader;
}

bool RunControl::ReadHeader() {
    if (!m_log.Reopen()) {
        m_owner.ShowMessage(IDS_CANNOT_OPEN_FILE, IDS_ERROR);
        return false;
    }
    if (m_log.ReadLogHeader(m_plot.slots) <= 0) {
        m_owner.ShowMessage(IDS_BAD_LOG_HEADER, IDS_PARSING_ERROR);
        return false;
    }
    m_module.SetRawKey(m_log.ModuleName());
    m_module.SetLogFileName(m_log.FileName());
    return true;
}

// Where the traces run until their first sample.
void RunControl::TakeScaleMinimums() {
    for (int slot = 0; slot < kSlotCount; ++slot) {
        const FieldSlot& field = m_plot.slots[slot];
        if (field.IsActive()) m_plot.values[static_cast<std::size_t>(slot)] = m_plot.RangeOf(field).min;
    }
}

void RunControl::Replay() {
    m_state.logMode = true;
    m_state.reopenLog = false;
    m_state.playing = true;
    ShowStop(true);
    m_buttons.ShowPause(PauseImage::Pause);
    m_buttons.ShowLoad(true);
    m_buttons.EnableStop(true);
    m_buttons.EnablePause(true);
    m_pacing.Restart();
    m_loop.Start();
}

void RunControl::ShowStop(bool active) {
    m_stopActive = active;
    m_buttons.ShowStop(active);
}

}  // namespace plotvane
