#pragma once

#include <cstdint>

#include "model/FieldSlot.h"
#include "model/RunState.h"
#include "plot/chart/TraceChart.h"
#include "scaling/DefaultScaling.h"
#include "scaling/ModuleScaling.h"
#include "scaling/Prefs.h"

namespace plotvane {

// The sample at hand: what the slots hold, the settings and ranges that apply to it, and the values that the
// chart gets. All but the values is shared with the rest of the program.
struct Sample {
    RunState& state;
    const Prefs& prefs;
    SlotTable& slots;
    const DefaultScaling& defaults;
    ModuleScaling& ranges;
    TraceValues values{};

    // A bit for each trace: whether the chart draws it, and whether the A/F button of its slot counts, which
    // it does in a lambda group without a unit.
    std::uint16_t drawn = 0;
    std::uint16_t airFuelOn = 0;

    ScaleRange RangeOf(const FieldSlot& slot) const { return ranges.RangeOf(slot.group, slot.field); }

    // Before the first record of a log: the trace of each active slot starts at its minimum.
    void TakeMinimums() {
        for (int slot = 0; slot < kSlotCount; ++slot) {
            if (slots[slot].IsActive()) values[slot] = RangeOf(slots[slot]).min;
        }
    }
};

}  // namespace plotvane
