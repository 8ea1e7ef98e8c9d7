#pragma once

#include <string>

#include "plot/binding/FuelFigures.h"
#include "plot/binding/SlotSelection.h"
#include "plot/binding/TracePlot.h"

namespace plotvane {

// The ten-channel layout: generic OBD values as bytes, 0..255, in place of the first row of slots.
class TenChannels {
public:
    TenChannels(TracePlot& plot, SlotSelection& selection, FuelFigures& fuel, const Prefs& prefs)
        : m_plot(plot), m_selection(selection), m_fuel(fuel), m_prefs(prefs) {}

    // Exchanges the layouts if the record's form asks for the other one.
    void PrepareSlots();

    // One sample in the ten-channel layout.
    void UpdateChannels();

private:
    void Enter();
    void Leave();

    TracePlot& m_plot;
    SlotSelection& m_selection;
    FuelFigures& m_fuel;
    const Prefs& m_prefs;
    bool m_applied = false;  // the layout that the dialog shows
    std::string m_text;
};

}  // namespace plotvane
