#include "plot/binding/TenChannels.h"

#include "base/Numbers.h"
#include "plot/binding/TraceScaling.h"

namespace plotvane {
void TenChannels::PrepareSlots() {
    if (m_applied == m_sample.state.tenChannels) return;
    m_applied = m_sample.state.tenChannels;
    if (m_applied) {
        Enter();
    } else {
        Leave();
    }
}

void TenChannels::Enter() {
    m_views.panel.ApplyLayout(true);
    for (int channel = 0; channel < kChannelCount; ++channel) {
        m_views.chart.SetRange(kLowest, kHighest, channel);
        m_views.panel.SetChannelShown(channel, true);
    }
}

// Kept on purpose: the trace index runs over the columns alone. So traces 0..3 end with the limits of the
// last row, and traces 4..11 keep the ten channels' range until a field changes or a limit is edited. The
// slots in use are ticked again: the ten channels cleared all twelve check boxes with every sample, and the
// user would have to tick each of them to see its trace.
void TenChannels::Leave() {
    m_views.panel.ApplyLayout(false);
    for (int column = 0; column < kSlotColumns; ++column) {
        for (int row = 0; row < kSlotRows; ++row) {
            const FieldSlot& slot = m_sample.slots[SlotOf(row, column)];
            const ScaleRange range = m_sample.RangeOf(slot);
            m_sample.values[column + 3 * row] = range.min;
            m_views.chart.SetRange(range.min, range.max, row / kSlotColumns + column);
            m_views.panel.SetTraceShown(SlotOf(row, column), slot.IsActive());
        }
    }
    m_selection.SelectSlot(0, 0);
}

void TenChannels::UpdateChannels() {
    m_views.panel.HideFrame(0);
    for (int slot = 0; slot < kSlotCount; ++slot) m_views.panel.SetTraceShown(slot, false);

    unsigned drawn = 0;
    for (int channel = 0; channel < kChannelCount; ++channel) {
        const double value = m_sample.slots.channelValues[channel];
        m_text.clear();
        AppendNumber(m_text, value);
        m_views.panel.ShowChannelValue(channel, m_text);

        const bool shown = m_views.panel.IsChannelShown(channel);
        m_sample.values[channel] = shown ? value : kLowest;
        if (shown) drawn |= 1U << channel;
        m_views.panel.SetChannelSwatch(
            channel, shown ? m_views.chart.GetTraceColor(channel) : m_views.panel.InactiveColour());
    }
    m_sample.values[10] = m_sample.values[11] = kLowest;
    m_sample.drawn = static_cast<std::uint16_t>(drawn);
    m_sample.airFuelOn = 0;

    for (int slot = SlotOf(1, 0); slot < kSlotCount; ++slot) {
        WriteValueAndUnit(m_text, m_sample.slots[slot]);
        m_views.panel.ShowValue(slot, m_text);
    }
}

}  // namespace plotvane
