#include "link/AcquisitionLoop.h"

#include "link/RecordParser.h"
#include "res/resource.h"

namespace plotvane {

// While it lives, the loop is on the stack. The log is closed here and not by each run: a run that was
// stopped in a wait does not know whether a newer one has opened the log again already.
class AcquisitionLoop::OnStack {
public:
    explicit OnStack(AcquisitionLoop& loop) : m_loop(loop) { m_loop.m_onStack = true; }
    ~OnStack() {
        m_loop.m_onStack = false;
        m_loop.m_log.Close();
    }
    OnStack(const OnStack&) = delete;
    OnStack& operator=(const OnStack&) = delete;

private:
    AcquisitionLoop& m_loop;
};

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
    try {
        RunUntilStopped();
    } catch (...) {
        // Without this the run would neither go on nor count as stopped, and nothing could be started any
        // more.
        m_owner.Stop();
        throw;
    }
}

void AcquisitionLoop::RunUntilStopped() {
    const OnStack onStack(*this);
    std::uint32_t generation = 0;
    do {
        generation = m_state.generation;
        Run();
    } while (generation != m_state.generation && !m_state.stopped);
}

void AcquisitionLoop::Run() {
    const LoopRun run(m_state);
    m_plot.ranges.ForgetLoadedName();
    if (!m_state.logMode && !m_live.Open()) {
        m_owner.ShowMessage(IDS_NO_EXCHANGE_FILE, IDS_CANNOT_RUN);
        m_owner.Close();
        return;
    }
    PassRecordsOn(m_state.logMode ? static_cast<RecordSource&>(m_log) : m_live, run);
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
        const bool isParsed = Parse();
        if (run.Ended()) return;  // while the module's labels were read
        if (!isParsed) {
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
    const RedrawOff redrawOff(m_plot.chart);
    m_channels.PrepareSlots();
    if (m_state.obdNow) {
        m_channels.UpdateChannels();
    } else {
        if (m_plot.ranges.LoadModuleScaling(m_module.Key()) == ModuleLoad::Loaded)
            m_scaling.ApplyLoadedRanges();
        m_scaling.UpdateSlots();
    }
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
