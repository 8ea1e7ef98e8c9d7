#include "plot/binding/TraceScaling.h"

#include "base/Numbers.h"
#include "plot/binding/AirFuelRule.h"

namespace plotvane {
namespace {

// What a field of a new table reads: limits that nobody has chosen yet.
constexpr ScaleRange kNotSet{};

}  // namespace

void WriteValueAndUnit(std::string& text, const FieldSlot& slot) {
    text.clear();
    AppendNumber(text, slot.value);
    text += ' ';
    text += slot.unit;
}

void TraceScaling::ApplyLoadedRanges() {
    int trace = 0;
    for (int slot = 0; slot < kSlotCount; ++slot) {
        if (!m_plot.slots[slot].IsActive()) continue;
        const ScaleRange range = m_plot.RangeOf(m_plot.slots[slot]);
        m_plot.chart.SetRange(range.min, range.max, trace++);
        m_plot.meters.SetSlotRange(slot, range.min, range.max);
    }
    m_plot.panel.ShowPixelShift(m_plot.state.pixelShift);
}

void TraceScaling::UpdateSlots() {
    m_fuel.UpdateFuel(m_plot.slots, m_plot.state, m_prefs, m_plot.panel, m_plot.meters);
    if (m_plot.state.obdFile) {
        WritePidValues();
    } else {
        WriteValues();
    }
    for (int slot = 0; slot < kSlotCount; ++slot) PrepareSlot(slot);
    for (int slot = 0; slot < kSlotCount; ++slot) BindSlot(slot);
    if (!m_plot.state.halted) {
        for (int slot = 0; slot < kSlotCount; ++slot) AdoptReassigned(slot);
    }
    for (int slot = 0; slot < kSlotCount; ++slot) m_plot.panel.ShowValue(slot, TextOf(slot));
}

void TraceScaling::WriteValues() {
    for (int slot = 0; slot < kSlotCount; ++slot) {
        if (m_plot.slots[slot].IsActive()) {
            WriteValueAndUnit(TextOf(slot), m_plot.slots[slot]);
        } else {
            TextOf(slot).clear();
        }
    }
}

// Generic OBD identifiers come in the first row only; the box below each names it.
void TraceScaling::WritePidValues() {
    for (int slot = 0; slot < kSlotColumns; ++slot) {
        std::string& value = TextOf(slot);
        std::string& pid = TextOf(slot + kSlotColumns);
        value.clear();
        pid.clear();
        if (!m_plot.slots[slot].IsActive()) continue;
        WriteValueAndUnit(value, m_plot.slots[slot]);
        pid = "PID ";
        AppendNumber(pid, m_plot.slots[slot].group);
    }
    for (int slot = SlotOf(2, 0); slot < kSlotCount; ++slot) TextOf(slot).clear();
}

void TraceScaling::PrepareSlot(int slot) {
    const FieldSlot& field = m_plot.slots[slot];
    if (!field.IsActive()) {
        m_plot.panel.SetTraceShown(slot, false);
        return;
    }
    // A newly used slot is drawn at once; one that its user has unchecked stays unchecked.
    if (field.lastGroup <= 0) m_plot.panel.SetTraceShown(slot, true);
    if (IsLambdaGroup(field.group)) ApplyAirFuelRule(slot);
    // Where an unchecked trace runs: along the bottom edge.
    m_plot.values[static_cast<std::size_t>(slot)] = m_plot.RangeOf(field).min;
    TakeUnitDefaults(slot);
}

void TraceScaling::TakeUnitDefaults(int slot) {
    const FieldSlot& field = m_plot.slots[slot];
    const FieldScaling* const defaults = m_plot.defaults.FindByUnit(field.unit);
    if (!defaults) return;
    const ScaleRange range = m_plot.RangeOf(field);
    if (range.min == kNotSet.min && defaults->min != kNotSet.min) {
        m_plot.ranges.SetMin(field.group, field.field, defaults->min);
        ApplyIfChanged(slot, range);
    }
    if (range.max == kNotSet.max && defaults->max != kNotSet.max) {
        m_plot.ranges.SetMax(field.group, field.field, defaults->max);
        ApplyIfChanged(slot, range);
    }
}

// The meter gets the range too, or its needle would go by 0..100 beside a trace that goes by the unit's
// range. A group outside the table keeps 0..100; setting that again with each sample would erase the traces.
void TraceScaling::ApplyIfChanged(int slot, const ScaleRange& before) {
    if (m_plot.RangeOf(m_plot.slots[slot]) == before) return;
    m_plot.ApplyRangeAndUnits(slot);
}

void TraceScaling::BindSlot(int slot) {
    if (!m_plot.panel.IsTraceShown(slot)) {
        m_plot.panel.SetSwatch(slot, m_plot.panel.InactiveColour());
        return;
    }
    if (m_plot.slots[slot].rangeChanged) m_plot.ApplyRangeAndUnits(slot);
    m_plot.values[static_cast<std::size_t>(slot)] = m_plot.slots[slot].value;
    m_plot.panel.SetSwatch(slot, m_plot.chart.GetTraceColor(slot));
}

void TraceScaling::AdoptReassigned(int slot) {
    FieldSlot& field = m_plot.slots[slot];
    if (field.group == field.lastGroup) return;
    m_plot.ApplyRangeAndUnits(slot);
    ApplyAirFuelRule(slot);
    field.lastGroup = field.group;
    m_selection.SelectSlot(0, 0);
    m_plot.state.redrawRequest = true;
}

// The stored value itself becomes the ratio, so that chart and meter show it too. At the tick at which the
// slot was reassigned the rule meets the value a second time: a ratio is no lambda, and the button is
// missing for that one tick.
void TraceScaling::ApplyAirFuelRule(int slot) {
    FieldSlot& field = m_plot.slots[slot];
    const bool isLambda = ShowsLambda(field);
    m_plot.panel.ShowAirFuelButton(slot, isLambda);
    if (!isLambda || !m_plot.panel.IsAirFuelOn(slot)) return;
    field.value *= kStoichiometricRatio;
    TextOf(slot).clear();
    AppendFixed(TextOf(slot), field.value, 1);
}

}  // namespace plotvane
