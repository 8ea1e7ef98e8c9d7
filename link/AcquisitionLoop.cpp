#include "link/AcquisitionLoop.h"

#include "link/RecordParser.h"

namespace plotvane {

AcquisitionLoop::AcquisitionLoop(Sample& sample, const Views& views, CurrentModule& module,
                                 FuelUnits fuelUnits, SampleKeeper* keeper)
    : m_sample(sample),
      m_state(sample.state),
      m_views(views),
      m_module(module),
      m_keeper(keeper),
      m_selection(sample, views.panel),
      m_fuel(std::move(fuelUnits)),
      m_scaling(sample, views, m_selection),
      m_channels(sample, views, m_selection) {}

RunEnd AcquisitionLoop::Run(RecordSource& source, const LoopRun& run) {
    while (!run.Ended()) {
        if (const auto end = source.Read(m_record, run)) return *end;
        const bool isParsed = Parse();
        if (run.Ended()) break;  // reading the module's labels dispatches messages
        if (!isParsed) return m_state.endOfLog ? RunEnd::Stopped : RunEnd::Malformed;
        BindSlots();
        m_views.chart.AppendPoints(m_sample.values);
        if (m_keeper) m_keeper->Take(source.Seconds(), m_sample, m_module);
        UpdateMeters();
        SelectFirstSlotOnce();
        RedrawIfAsked();
        if (m_state.logMode && m_state.endOfLog) return RunEnd::Stopped;
    }
    return RunEnd::Interrupted;
}

bool AcquisitionLoop::Parse() {
    const std::string_view text = m_record.Text();
    const auto position = m_module.ApplyModuleName(text);
    return position && ParseRecord(text, *position, m_sample.slots, m_state);
}

void AcquisitionLoop::BindSlots() {
    const RedrawOff redrawOff(m_views.chart);
    m_channels.PrepareSlots();
    if (!m_state.tenChannels) LoadRanges();
    m_fuel.UpdateFuel(m_sample, m_views);
    if (m_state.tenChannels) {
        m_channels.UpdateChannels();
    } else {
        m_scaling.UpdateSlots();
    }
    m_seen.Take(m_sample.slots);
    m_views.panel.DrawValues();
}

void AcquisitionLoop::LoadRanges() {
    if (m_sample.ranges.LoadModuleScaling(m_module.Key()) != ModuleLoad::Loaded) return;
    m_scaling.ApplyLoadedRanges();
    m_seen.Clear();
}

// A slot's meter shows the value itself, even while its trace is not drawn. A channel's meter shows what the
// chart gets.
void AcquisitionLoop::UpdateMeters() {
    for (int slot = 0; slot < kSlotCount; ++slot) {
        m_views.meters.SetSlotValue(slot, m_sample.slots[slot].value);
    }
    for (int channel = 0; channel < kChannelCount; ++channel) {
        m_views.meters.SetChannelValue(channel, m_sample.values[channel]);
    }
    m_views.meters.SetFuelValue(MeterBoard::Fuel::Mileage, m_fuel.Mileage());
    m_views.meters.SetFuelValue(MeterBoard::Fuel::Consumption, m_fuel.Consumption());
}

void AcquisitionLoop::SelectFirstSlotOnce() {
    if (m_state.firstSampleDrawn) return;
    m_state.firstSampleDrawn = true;
    m_selection.SelectSlot(0, 0);
}

void AcquisitionLoop::RedrawIfAsked() {
    if (m_state.tenChannels == m_state.hadTenChannels && !m_state.redrawRequest) return;
    m_views.chart.InvalidateCtrl();
    m_state.redrawRequest = false;
}

}  // namespace plotvane
