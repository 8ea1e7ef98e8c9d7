#include "plot/binding/SlotSelection.h"

#include "base/Numbers.h"

namespace plotvane {

void SlotSelection::SelectSlot(int row, int column) {
    const bool active = m_sample.slots[SlotOf(row, column)].IsActive();
    m_row = active ? row : 0;
    m_column = active ? column : 0;
    m_isShown = true;
    Show();
}

void SlotSelection::Show() {
    const ScaleRange range = m_sample.RangeOf(Selected());
    m_panel.ShowSelection(Slot(), range.min, range.max);
}

bool SlotSelection::ShowAgain() {
    if (m_isShown) Show();
    return m_isShown;
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
    if (!minimum || *minimum == m_sample.RangeOf(slot).min) return;
    m_sample.ranges.SetMin(slot.group, slot.field, *minimum);
    slot.rangeChanged = true;
}

void SlotSelection::SetMaximum(std::string_view typed) {
    FieldSlot& slot = Selected();
    const auto maximum = TryParseDecimal(typed);
    if (!maximum || *maximum == m_sample.RangeOf(slot).max) return;
    m_sample.ranges.SetMax(slot.group, slot.field, *maximum);
    slot.rangeChanged = true;
}

}  // namespace plotvane
