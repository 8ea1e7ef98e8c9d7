#include "plot/binding/TraceScaling.h"

#include "base/Numbers.h"
#include "plot/binding/AirFuelRule.h"

namespace plotvane {
namespace {

// What a field of a new table reads: limits that nobody has chosen yet.
constexpr ScaleRange kNotSet{};

void Include(std::uint16_t& traces, int trace) {
    traces = static_cast<std::uint16_t>(traces | 1U << trace);
}

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
        if (!m_sample.slots[slot].IsActive()) continue;
        const ScaleRange range = m_sample.RangeOf(m_sample.slots[slot]);
        m_views.chart.SetRange(range.min, range.max, trace++);
        m_views.meters.SetSlotRange(slot, range.min, range.max);
    }
    m_views.panel.ShowPixelShift(m_sample.state.pixelShift);
}

void TraceScaling::UpdateSlots() {
    m_sample.drawn = 0;
    m_sample.airFuelOn = 0;
    if (m_sample.state.obdFile) {
        WritePidValues();
    } else {
        WriteValues();
    }
    for (int slot = 0; slot < kSlotCount; ++slot) PrepareSlot(slot);
    for (int slot = 0; slot < kSlotCount; ++slot) BindSlot(slot);
    if (!m_sample.state.halted) {
        for (int slot = 0; slot < kSlotCount; ++slot) AdoptReassigned(slot);
    }
    for (int slot = 0; slot < kSlotCount; ++slot) m_views.panel.ShowValue(slot, TextOf(slot));
}

void TraceScaling::WriteValues() {
    for (int slot = 0; slot < kSlotCount; ++slot) {
        if (m_sample.slots[slot].IsActive()) {
            WriteValueAndUnit(TextOf(slot), m_sample.slots[slot]);
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
        if (!m_sample.slots[slot].IsActive()) continue;
        WriteValueAndUnit(value, m_sample.slots[slot]);
        pid = "PID ";
        AppendNumber(pid, m_sample.slots[slot].group);
    }
    for (int slot = SlotOf(2, 0); slot < kSlotCount; ++slot) TextOf(slot).clear();
}

void TraceScaling::PrepareSlot(int slot) {
    const FieldSlot& field = m_sample.slots[slot];
    if (!field.IsActive()) {
        m_views.panel.SetTraceShown(slot, false);
        return;
    }
    // A newly used slot is drawn at once; one that its user has unchecked stays unchecked.
    if (field.lastGroup <= 0) m_views.panel.SetTraceShown(slot, true);
    if (IsLambdaGroup(field.group)) {
        ApplyAirFuelRule(slot);
        if (field.unit.empty() && m_views.panel.IsAirFuelOn(slot)) Include(m_sample.airFuelOn, slot);
    }
    // Where an unchecked trace runs: along the bottom edge.
    m_sample.values[slot] = m_sample.RangeOf(field).min;
    TakeUnitDefaults(slot);
}

void TraceScaling::TakeUnitDefaults(int slot) {
    const FieldSlot& field = m_sample.slots[slot];
    const FieldScaling* const defaults = m_sample.defaults.FindByUnit(field.unit);
    if (!defaults) return;
    const ScaleRange range = m_sample.RangeOf(field);
    if (range.min == kNotSet.min && defaults->min != kNotSet.min) {
        m_sample.ranges.SetMin(field.group, field.field, defaults->min);
        ApplyIfChanged(slot, range);
    }
    if (range.max == kNotSet.max && defaults->max != kNotSet.max) {
        m_sample.ranges.SetMax(field.group, field.field, defaults->max);
        ApplyIfChanged(slot, range);
    }
}

// The meter gets the range too: its needle must follow the same range as the trace beside it. A group outside
// the table keeps 0..100, and setting that again with each sample would erase the traces.
void TraceScaling::ApplyIfChanged(int slot, const ScaleRange& before) {
    if (m_sample.RangeOf(m_sample.slots[slot]) == before) return;
    ApplyRangeAndUnits(slot);
}

// The meter also takes the unit. An edit of the range is done with this.
void TraceScaling::ApplyRangeAndUnits(int slot) {
    FieldSlot& field = m_sample.slots[slot];
    const ScaleRange range = m_sample.RangeOf(field);
    m_views.chart.SetRange(range.min, range.max, slot);
    m_views.meters.SetSlotRange(slot, range.min, range.max);
    m_views.meters.SetSlotUnits(slot, field.unit);
    field.rangeChanged = false;
}

void TraceScaling::BindSlot(int slot) {
    if (!m_views.panel.IsTraceShown(slot)) {
        m_views.panel.SetSwatch(slot, m_views.panel.InactiveColour());
        return;
    }
    if (m_sample.slots[slot].rangeChanged) ApplyRangeAndUnits(slot);
    Include(m_sample.drawn, slot);
    m_sample.values[slot] = m_sample.slots[slot].value;
    m_views.panel.SetSwatch(slot, m_views.chart.GetTraceColor(slot));
}

void TraceScaling::AdoptReassigned(int slot) {
    FieldSlot& field = m_sample.slots[slot];
    if (field.group == field.lastGroup) return;
    ApplyRangeAndUnits(slot);
    ApplyAirFuelRule(slot);
    field.lastGroup = field.group;
    m_selection.SelectSlot(0, 0);
    m_sample.state.redrawRequest = true;
}

// The stored value itself becomes the ratio, so that chart and meter show it too. When a slot is reassigned,
// the rule runs twice on the same sample. The second time it sees the ratio, which is no lambda, so the
// button is missing for that one sample.
void TraceScaling::ApplyAirFuelRule(int slot) {
    FieldSlot& field = m_sample.slots[slot];
    const bool isLambda = ShowsLambda(field);
    m_views.panel.ShowAirFuelButton(slot, isLambda);
    if (!isLambda || !m_views.panel.IsAirFuelOn(slot)) return;
    field.value *= kStoichiometricRatio;
    TextOf(slot).clear();
    AppendFixed(TextOf(slot), field.value, 1);
}

}  // namespace plotvane
