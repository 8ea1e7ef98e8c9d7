#pragma once

#include <string_view>

#include "plot/binding/Sample.h"
#include "plot/binding/SlotPanel.h"

namespace plotvane {

// The slot whose limits the "Vertical scale" box shows and edits.
class SlotSelection {
public:
    SlotSelection(Sample& sample, SlotPanel& panel) : m_sample(sample), m_panel(panel) {}

    // Selects a slot, or (0, 0) if that one is not active.
    void SelectSlot(int row, int column);

    int Slot() const { return SlotOf(m_row, m_column); }

    // One slot forward or back, row by row; stays at the last and at the first.
    void SelectNext();
    void SelectPrevious();

    // Shows the limits of the selected slot again, in place of what was typed. False, with nothing done, if
    // no slot has been selected yet.
    bool ShowAgain();

    // Takes what was typed as a limit of the selected slot: a whole number in the field's unit. Text without
    // one changes nothing. A new limit reaches the chart with the next sample. Nobody checks that the maximum
    // lies above the minimum.
    void SetMinimum(std::string_view typed);
    void SetMaximum(std::string_view typed);

private:
    FieldSlot& Selected() { return m_sample.slots[Slot()]; }
    void Show();

    Sample& m_sample;
    SlotPanel& m_panel;
    int m_row = 0;
    int m_column = 0;
    bool m_isShown = false;  // from the first SelectSlot on
};

}  // namespace plotvane
