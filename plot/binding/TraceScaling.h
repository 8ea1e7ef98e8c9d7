#pragma once

#include <array>
#include <string>

#include "plot/binding/FuelFigures.h"
#include "plot/binding/SlotSelection.h"
#include "plot/binding/TracePlot.h"

namespace plotvane {

// Binds the twelve slots to their traces, once per sample: value boxes, swatches, ranges, and the values
// that the chart gets. A trace's range comes from the module's table; one that still reads 0..100 there
// takes the default range of its unit.
class TraceScaling {
public:
    TraceScaling(TracePlot& plot, SlotSelection& selection, FuelFigures& fuel, const Prefs& prefs)
        : m_plot(plot), m_selection(selection), m_fuel(fuel), m_prefs(prefs) {}

    // After a module's table was loaded: its ranges onto the traces and the meters of the slots in use.
    // Traces count the slots in use only, unlike everywhere else, and that is meant: the two differ just
    // where an empty slot stands before a used one, until the next reassignment puts each range right.
    void ApplyLoadedRanges();

    // One sample in the twelve-slot layout.
    void UpdateSlots();

private:
    void WriteValues();
    void WritePidValues();
    void PrepareSlot(int slot);
    void TakeUnitDefaults(int slot);
    void ApplyIfChanged(int slot, const ScaleRange& before);
    void BindSlot(int slot);
    void AdoptReassigned(int slot);
    void ApplyAirFuelRule(int slot);
    std::string& TextOf(int slot) { return m_texts[static_cast<std::size_t>(slot)]; }

    TracePlot& m_plot;
    SlotSelection& m_selection;
    FuelFigures& m_fuel;
    const Prefs& m_prefs;
    std::array<std::string, kSlotCount>
        m_texts;  // of the value boxes; kept, so that a sample allocates nothing
};

// "%g %s" of a slot's value and unit, as the value boxes show it.
void WriteValueAndUnit(std::string& text, const FieldSlot& slot);

}  // namespace plotvane
