#include "plot/binding/TenChannels.h"

#include "base/Numbers.h"
#include "plot/binding/TraceScaling.h"

namespace plotvane {
namespace {

// One below and one above what a byte can hold. An unchecked channel is drawn at the lower limit.
constexpr double kLower = -1.0;
constexpr double kUpper = 256.0;

}  // namespace

void TenChannels::PrepareSlots() {
    if (m_applied == m_plot.state.obdNow) return;
    m_applied = m_plot.state.obdNow;
    if (m_applied) {
        Enter();
    } else {
        Leave();
    }
}

void TenChannels::Enter() {
    m_plot.panel.ApplyLayout(true);
    for (int field = 0; field < kObdFieldCount; ++field) {
        m_plot.chart.SetRange(kLower, kUpper, field);
        m_plot.panel.SetObdTraceShown(field, true);
    }
}

// Kept on purpose: the trace index runs over the columns alone, so that traces 0..3 end with the limits of
// the last row and traces 4..11 keep the ten channels' range until a field changes or a limit is edited.
// The slots in use are ticked again: the ten channels have cleared all twelve check boxes with every sample,
// and without this their traces would stay away until the user has ticked each of them.
void TenChannels::Leave() {
    m_plot.panel.ApplyLayout(false);
    for (int column = 0; column < kSlotColumns; ++column) {
        for (int row = 0; row < kSlotRows; ++row) {
            const FieldSlot& slot = m_plot.slots[SlotOf(row, column)];
            const ScaleRange range = m_plot.RangeOf(slot);
            m_plot.values[static_cast<std::size_t>(column + 3 * row)] = range.min;
            m_plot.chart.SetRange(range.min, range.max, row / kSlotColumns + column);
            m_plot.panel.SetTraceShown(SlotOf(row, column), slot.IsActive());
        }
    }
    m_selection.SelectSlot(0, 0);
}

void TenChannels::UpdateChannels() {
    m_fuel.UpdateFuel(m_plot.slots, m_plot.state, m_prefs, m_plot.panel, m_plot.meters);
    m_plot.panel.HideFrame(0);
    for (int slot = 0; slot < kSlotCount; ++slot) m_plot.panel.SetTraceShown(slot, false);

    for (int field = 0; field < kObdFieldCount; ++field) {
        const auto index = static_cast<std::size_t>(field);
        const double value = m_plot.slots.obdValues[index];
        m_text.clear();
        AppendNumber(m_text, value);
        m_plot.panel.ShowObdValue(field, m_text);

        const bool shown = m_plot.panel.IsObdTraceShown(field);
        m_plot.values[index] = shown ? value : kLower;
        m_plot.panel.SetObdSwatch(field,
                                  shown ? m_plot.chart.GetTraceColor(field) : m_plot.panel.InactiveColour());
    }
    m_plot.values[10] = m_plot.values[11] = kLower;

    for (int slot = SlotOf(1, 0); slot < kSlotCount; ++slot) {
        WriteValueAndUnit(m_text, m_plot.slots[slot]);
        m_plot.panel.ShowValue(slot, m_text);
    }
}

}  // namespace plotvane
