#pragma once

#include "link/LiveSource.h"
#include "link/LogSource.h"
#include "link/LoopOwner.h"
#include "logs/CurrentModule.h"
#include "model/RecordBuffer.h"
#include "plot/binding/TenChannels.h"
#include "plot/binding/TraceScaling.h"

namespace plotvane {

// The way of one sample, from the host's pipe or a log row onto the chart and the meters. Runs inside a
// message handler for as long as data flows; everything that the user does meanwhile happens in handlers
// that its waits dispatch, and reaches it through the run state only.
class AcquisitionLoop {
public:
    AcquisitionLoop(TracePlot& plot, CurrentModule& module, TraceScaling& scaling, TenChannels& channels,
                    SlotSelection& selection, FuelFigures& fuel, LiveSource& live, LogSource& log,
                    LoopOwner& owner);

    // Runs until something stops it; refused while a run is on. Called from a handler that an older, just
    // stopped run has dispatched, it returns at once, and the older call goes on with the new run: however
    // often the user stops and restarts, the stack holds one loop. An exception stops the run as the user
    // would and passes on; no log is open after the last run, whatever has ended it.
    void Start();

private:
    class OnStack;

    void RunUntilStopped();
    void Run();
    void PassRecordsOn(RecordSource& source, const LoopRun& run);
    bool Parse();
    void BindSlots();
    void UpdateMeters();
    void SelectFirstSlotOnce();
    void RedrawIfAsked();

    RunState& m_state;
    TracePlot& m_plot;
    CurrentModule& m_module;
    TraceScaling& m_scaling;
    TenChannels& m_channels;
    SlotSelection& m_selection;
    FuelFigures& m_fuel;
    LiveSource& m_live;
    LogSource& m_log;
    LoopOwner& m_owner;
    RecordBuffer m_record;
    bool m_onStack = false;
};

}  // namespace plotvane
