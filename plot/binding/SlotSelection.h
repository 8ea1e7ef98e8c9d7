#pragma once

#include <string_view>

#include "plot/binding/TracePlot.h"

namespace plotvane {

// The slot whose limits the "Vertical scale" box shows and edits.
class SlotSelection {
public:
    explicit SlotSelection(TracePlot& plot) : m_plot(plot) {}

    // Selects a slot, or (0, 0) if that one is not active.
    void SelectSlot(int row, int column);

    // One slot on or back, row by row; the last and the first one stay.
    void SelectNext();
    void SelectPrevious();

    // What was typed as a limit of the selected slot, a whole number in the field's unit. Text without one
    // changes nothing. A new limit reaches the chart at the next tick; that the maximum lies above the
    // minimum is not asked for.
    void SetMinimum(std::string_view typed);
    void SetMaximum(std::string_view typed);

private:
    FieldSlot& Selected() { return m_plot.slots[SlotOf(m_row, m_column)]; }

    TracePlot& m_plot;
    int m_row = 0;
    int m_column = 0;
};

}  // namespace plotvane
