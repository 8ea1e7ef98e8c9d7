#pragma once

#include "link/AcquisitionLoop.h"
#include "link/LogSource.h"
#include "plot/binding/ReplayPacing.h"

namespace plotvane {

// What the Pause button offers: nothing to hold, a hold, going on after a hold, starting over after a stop.
enum class PauseImage { Idle, Pause, Resume, StartOver };

// The run buttons as the portable code sees them; the main dialog is the real one.
struct RunButtons {
    virtual ~RunButtons() = default;

    virtual void ShowStop(bool active) = 0;  // which of its two images the button wears
    virtual void ShowPause(PauseImage image) = 0;
    virtual void ShowLoad(bool active) = 0;
    virtual void EnableStop(bool enabled) = 0;
    virtual void EnablePause(bool enabled) = 0;
    virtual void EnableLoad(bool enabled) = 0;
};

// What the buttons Stop, Pause and Load log file do; they start and stop the acquisition loop.
class RunControl {
public:
    RunControl(TracePlot& plot, AcquisitionLoop& loop, ReplayPacing& pacing, CurrentModule& module,
               LogSource& log, RunButtons& buttons, LoopOwner& owner);

    // Ends the run, live or replay, and saves the module's ranges. Does nothing more the second time.
    void Stop();

    // Holds and resumes; after a Stop it starts again: live data from the same pipe, a replay from the first
    // row of the same file. Returns when the hold, or the run that it started, is over.
    void Pause();

    // Asks for a log and plays it; returns when the replay is over. Only without the host, and not while a
    // log is played.
    void LoadLog();

    // The file dialog, messages and long headers dispatch messages before a log is played, and so do the long
    // lines of a log that was stopped a moment ago. A Pause or Load among them does nothing: it would open
    // another log over this one.

private:
    void SaveRanges();
    void RestartLive();
    void ReplayAgain();
    bool MayOpenLog() const { return !m_isOpening && !m_log.IsBeingRead(); }
    enum class Opening { Done, NoLog, BadHeader };
    Opening OpenLog();
    bool ReadHeader();
    void TakeScaleMinimums();
    void Replay();
    void ShowStop(bool active);

    RunState& m_state;
    TracePlot& m_plot;
    AcquisitionLoop& m_loop;
    ReplayPacing& m_pacing;
    CurrentModule& m_module;
    LogSource& m_log;
    RunButtons& m_buttons;
    LoopOwner& m_owner;
    bool m_stopActive = false;  // the Stop button wears its active image: a replay has run
    bool m_isOpening = false;   // a log is being chosen, or its header read
};

}  // namespace plotvane
