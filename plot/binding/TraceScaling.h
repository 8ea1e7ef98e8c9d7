#pragma once

#include <string>

#include "plot/binding/Sample.h"
#include "plot/binding/SlotSelection.h"
#include "plot/binding/Views.h"

namespace plotvane {

// Binds the twelve slots to their traces, once per sample: value boxes, swatches, ranges, and the values
// that the chart gets. A trace's range comes from the module's table; one that still reads 0..100 there
// takes the default range of its unit.
class TraceScaling {
public:
    TraceScaling(Sample& sample, const Views& views, SlotSelection& selection)
        : m_sample(sample), m_views(views), m_selection(selection) {}

    // To be called once a module's table is loaded: gives its ranges to the traces and the meters of the
    // slots in use. Kept on purpose: here the traces are counted along the slots in use only. That gives a
    // trace another slot's range if an empty slot stands before it, until the next reassignment.
    void ApplyLoadedRanges();

    // One sample in the twelve-slot layout.
    void UpdateSlots();

private:
    void WriteValues();
    void WritePidValues();
    void PrepareSlot(int slot);
    void TakeUnitDefaults(int slot);
    void ApplyIfChanged(int slot, const ScaleRange& before);
    void ApplyRangeAndUnits(int slot);
    void BindSlot(int slot);
    void AdoptReassigned(int slot);
    void ApplyAirFuelRule(int slot);
    std::string& TextOf(int slot) { return m_texts[slot]; }

    Sample& m_sample;
    Views m_views;
    SlotSelection& m_selection;
    IndexedArray<std::string, kSlotCount>
        m_texts{};  // of the value boxes; kept, so that a sample allocates nothing
};

// "%g %s" of a slot's value and unit, as the value boxes show it.
void WriteValueAndUnit(std::string& text, const FieldSlot& slot);

}  // namespace plotvane
