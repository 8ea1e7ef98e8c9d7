#pragma once

#include "link/AcquisitionLoop.h"
#include "link/LiveSource.h"
#include "link/LogSource.h"
#include "link/RunButtons.h"
#include "model/MainWindow.h"
#include "plot/binding/ReplayPacing.h"

namespace plotvane {

// Everything that the acquisition shows something on or asks for something.
struct AcquisitionViews : Views {
    RunButtons& buttons;
    MainWindow& window;
    SampleKeeper* keeper = nullptr;  // null: nobody keeps the samples
};

// Starts runs of the loop and ends them: what the buttons Stop, Pause and Load log file do, and what follows
// from the way a run has ended.
//
// However often the user stops and restarts, the stack holds one run: a start that a handler asks for while
// an older run is on the stack returns at once, and the older call goes on with the new run. No log is open
// after the last run, whatever has ended it.
class RunControl {
public:
    // All references must outlive this object, and so must the keeper, if there is one.
    RunControl(Sample& sample, const AcquisitionViews& views, CurrentModule& module, AcquisitionLoop& loop,
               HostPipe& pipe, MessagePump& pump);

    // Shows the host's data. Returns when the run is over; at once if one is on already. If an exception ends
    // the run, it is stopped as the user would stop it, and the exception passes on.
    void StartLive();

    // Ends the run, live or replay, and saves the module's ranges. Does nothing more the second time.
    void Stop();

    // Holds and resumes; after a Stop it starts again: live data from the same pipe, a replay from the first
    // row of the same file. Returns when the hold, or the run that it started, is over. Does nothing while a
    // log is being opened, or while it would open another over the one that is being read.
    void Pause();

    // Shows the next row of a paused replay and goes on holding. Does nothing in any other state. Each call
    // during one hold adds a row.
    void StepRow();

    // Asks for a log and plays it; returns when the replay is over. Does nothing while MayLoadLog says no.
    void LoadLog();

    // Only without the host, and not while a log is played, opened or read.
    bool MayLoadLog() const;

private:
    class OnStack;

    void Start();
    void RunUntilStopped();
    RunEnd Run(const LoopRun& run);
    void ActOn(RunEnd end);
    void TogglePlaying();
    void Hold(const LoopRun& run);
    void ReplayAgain();
    LogSource::Opening OpenLog();
    void Replay();
    void SaveRanges();
    void ShowState();
    void StayAwakeForData();

    Sample& m_sample;
    RunState& m_state;
    SlotPanel& m_panel;
    RunButtons& m_buttons;
    MainWindow& m_window;
    CurrentModule& m_module;
    AcquisitionLoop& m_loop;
    SampleKeeper* const m_keeper;
    ReplayPacing m_pacing;
    LiveSource m_live;
    LogSource m_log;
    bool m_onStack = false;
};

}  // namespace plotvane
