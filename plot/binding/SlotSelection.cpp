#include "plot/binding/SlotSelection.h"

#include "base/Numbers.h"

namespace plotvane {

void SlotSelection::SelectSlot(int row, int column) {
    const bool active = m_plot.slots[SlotOf(row, column)].IsActive();
    m_row = active ? row : 0;
    m_column = active ? column : 0;
    const ScaleRange range = m_plot.RangeOf(Selected());
    m_plot.panel.ShowSelection(SlotOf(m_row, m_column), range.min, range.max);
}

void SlotSelection::SelectNext() {
    if (m_column < kSlotColumns - 1) {
        SelectSlot(m_row, m_column + 1);
    } else if (m_row < kSlotRows - 1) {
        SelectSlot(m_row + 1, 0);
    } else {
        SelectSlot(m_row, m_column);
    }
}

void SlotSelection::SelectPrevious() {
    if (m_column > 0) {
        SelectSlot(m_row, m_column - 1);
    } else if (m_row > 0) {
        SelectSlot(m_row - 1, kSlotColumns - 1);
    } else {
        SelectSlot(m_row, m_column);
    }
}

void SlotSelection::SetMinimum(std::string_view typed) {
    FieldSlot& slot = Selected();
    const auto minimum = TryParseDecimal(typed);
    if (!minimum || *minimum == m_plot.RangeOf(slot).min) return;
    m_plot.ranges.SetMin(slot.group, slot.field, *minimum);
    slot.rangeChanged = true;
}

void SlotSelection::SetMaximum(std::string_view typed) {
    FieldSlot& slot = Selected();
    const auto maximum = TryParseDecimal(typed);
    if (!maximum || *maximum == m_plot.RangeOf(slot).max) return;
    m_plot.ranges.SetMax(slot.group, slot.field, *maximum);
    slot.rangeChanged = true;
}

}  // namespace plotvane
