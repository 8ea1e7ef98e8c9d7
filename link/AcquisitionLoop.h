#pragma once

#include "link/RecordSource.h"
#include "link/SampleKeeper.h"
#include "logs/CurrentModule.h"
#include "model/RecordBuffer.h"
#include "plot/binding/FuelFigures.h"
#include "plot/binding/SeenValues.h"
#include "plot/binding/SlotSelection.h"
#include "plot/binding/TenChannels.h"
#include "plot/binding/TraceScaling.h"

namespace plotvane {

// Takes each sample from its source to the chart and the meters.
class AcquisitionLoop {
public:
    // All references must outlive the loop, and so must the keeper, if there is one.
    AcquisitionLoop(Sample& sample, const Views& views, CurrentModule& module, FuelUnits fuelUnits,
                    SampleKeeper* keeper);

    // Passes records on until the source has no more, a record is malformed, or the run has ended. It runs
    // inside a message handler. While the source waits, it dispatches messages, so any other handler may run
    // in the middle of this. After RunEnd::Halted, call it again with the same run.
    RunEnd Run(RecordSource& source, const LoopRun& run);

    SlotSelection& Selection() { return m_selection; }
    const FuelFigures& Fuel() const { return m_fuel; }
    SeenValues& Seen() { return m_seen; }

private:
    bool Parse();
    void BindSlots();
    void LoadRanges();
    void UpdateMeters();
    void SelectFirstSlotOnce();
    void RedrawIfAsked();

    Sample& m_sample;
    RunState& m_state;
    Views m_views;
    CurrentModule& m_module;
    SampleKeeper* const m_keeper;
    SlotSelection m_selection;
    FuelFigures m_fuel;
    TraceScaling m_scaling;
    TenChannels m_channels;
    SeenValues m_seen;
    RecordBuffer m_record;
};

}  // namespace plotvane
