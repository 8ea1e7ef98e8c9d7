#include "link/AcquisitionLoop.h"

#include "link/RecordParser.h"
#include "res/resource.h"

namespace plotvane {

AcquisitionLoop::AcquisitionLoop(TracePlot& plot, CurrentModule& module, TraceScaling& scaling,
                                 TenChannels& channels, SlotSelection& selection, FuelFigures& fuel,
                                 LiveSource& live, LogSource& log, LoopOwner& owner)
    : m_state(plot.state),
      m_plot(plot),
      m_module(module),
      m_scaling(scaling),
      m_channels(channels),
      m_selection(selection),
      m_fuel(fuel),
      m_live(live),
      m_log(log),
      m_owner(owner) {}

void AcquisitionLoop::Start() {
    m_state.endOfLog = false;
    m_state.firstSampleDrawn = false;
    if (!m_state.stopped) return;
    m_state.stopped = false;
    m_state.halted = false;
    ++m_state.generation;
    if (m_onStack) return;

    m_onStack = true;
    std::uint32_t generation = 0;
    do {
        generation = m_state.generation;
        Run();
    } while (generation != m_state.generation && !m_state.stopped);
    m_onStack = false;
}

void AcquisitionLoop::Run() {
    const LoopRun run(m_state);
    m_plot.ranges.ForgetLoadedName();
    if (!m_state.logMode && !m_live.Open()) {
        m_owner.ShowMessage(IDS_NO_EXCHANGE_FILE, IDS_CANNOT_RUN);
        m_owner.Close();
        return;
    }
    RecordSource& source = m_state.logMode ? static_cast<RecordSource&>(m_log) : m_live;
    PassRecordsOn(source, run);
    // A newer run may be reading from the same source already.
    if (run.IsCurrent()) source.Finish();
}

void AcquisitionLoop::PassRecordsOn(RecordSource& source, const LoopRun& run) {
    while (!run.Ended()) {
        switch (source.Read(m_record, run)) {
            case Next::Record:
                break;
            case Next::Stopped:
                m_owner.Stop();
                return;
            case Next::Closing:
                m_owner.Close();
                return;
            case Next::Ended:
                return;
        }
        if (!Parse()) {
            // Kept on purpose: a malformed live record freezes the display. The run is over but does not
            // count as stopped, so that nothing starts on a host that sends what nobody understands.
            if (m_state.endOfLog) m_owner.Stop();
            return;
        }
        BindSlots();
        m_plot.chart.AppendPoints(m_plot.values);
        UpdateMeters();
        SelectFirstSlotOnce();
        RedrawIfAsked();
        if (m_state.logMode && m_state.endOfLog) {
            m_owner.Stop();
            return;
        }
    }
}

bool AcquisitionLoop::Parse() {
    const std::string_view text = m_record.Text();
    const auto position = m_module.ApplyModuleName(text);
    return position && ParseRecord(text, *position, m_plot.slots, m_state);
}

void AcquisitionLoop::BindSlots() {
    m_plot.chart.SetRedraw(false);
    m_channels.PrepareSlots();
    if (m_state.obdNow) {
        m_channels.UpdateChannels();
    } else {
        if (m_plot.ranges.LoadModuleScaling(m_module.Key()) == ModuleLoad::Loaded)
            m_scaling.ApplyLoadedRanges();
        m_scaling.UpdateSlots();
    }
    m_plot.chart.SetRedraw(true);
}

// The meters of slots show the value itself, also while its trace is not drawn; those of the ten OBD fields
// show what the chart gets.
void AcquisitionLoop::UpdateMeters() {
    for (int slot = 0; slot < kSlotCount; ++slot) {
        m_plot.meters.SetSlotValue(slot, m_plot.slots[slot].value);
    }
    for (int field = 0; field < kObdFieldCount; ++field) {
        m_plot.meters.SetObdValue(field, m_plot.values[static_cast<std::size_t>(field)]);
    }
    m_plot.meters.SetFuelValue(MeterBoard::Fuel::Mileage, m_fuel.Mileage());
    m_plot.meters.SetFuelValue(MeterBoard::Fuel::Consumption, m_fuel.Consumption());
}

void AcquisitionLoop::SelectFirstSlotOnce() {
    if (m_state.firstSampleDrawn) return;
    m_state.firstSampleDrawn = true;
    m_selection.SelectSlot(0, 0);
}

void AcquisitionLoop::RedrawIfAsked() {
    if (m_state.obdNow == m_state.obdPrevious && !m_state.redrawRequest) return;
    m_plot.chart.InvalidateCtrl();
    m_state.redrawRequest = false;
}

}  // namespace plotvane
