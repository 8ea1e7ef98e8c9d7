#pragma once

#include "model/FieldSlot.h"
#include "model/RunState.h"
#include "plot/binding/MeterBoard.h"
#include "plot/binding/SlotPanel.h"
#include "plot/chart/TraceChart.h"
#include "scaling/DefaultScaling.h"
#include "scaling/ModuleScaling.h"

namespace plotvane {

// What binding values to traces works on: the data on one side, what shows it on the other.
struct TracePlot {
    RunState& state;
    SlotTable& slots;
    const DefaultScaling& defaults;
    ModuleScaling& ranges;
    TraceChart& chart;
    SlotPanel& panel;
    MeterBoard& meters;
    TraceValues values{};  // of the sample at hand, one a trace

    ScaleRange RangeOf(const FieldSlot& slot) const { return ranges.RangeOf(slot.group, slot.field); }

    // The slot's range on its own trace and on its meter, which also takes the unit; an edit of the range
    // is thereby done.
    void ApplyRangeAndUnits(int slot) {
        const ScaleRange range = RangeOf(slots[slot]);
        chart.SetRange(range.min, range.max, slot);
        meters.SetSlotRange(slot, range.min, range.max);
        meters.SetSlotUnits(slot, slots[slot].unit);
        slots[slot].rangeChanged = false;
    }
};

}  // namespace plotvane
