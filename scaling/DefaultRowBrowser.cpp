#include "scaling/DefaultRowBrowser.h"

#include "base/Numbers.h"
#include "scaling/ScalingTokens.h"

namespace plotvane {

void DefaultRowBrowser::Load() {
    m_table.LoadDefaultScaling();
    m_row = 0;
}

bool DefaultRowBrowser::HasRow() const {
    return m_row <= m_table.LastIndex();
}

const FieldScaling& DefaultRowBrowser::Row() const {
    static const FieldScaling kNone;  // the table may hold remains after its last row
    return HasRow() ? m_table.Row(m_row) : kNone;
}

std::string DefaultRowBrowser::Position(std::string_view label) const {
    std::string text{label};
    text += ": ";
    AppendDecimal(text, m_row + 1);
    text += '/';
    AppendDecimal(text, m_table.LastIndex() + 1);
    return text;
}

void DefaultRowBrowser::GoToNext() {
    if (m_row < m_table.LastIndex()) ++m_row;
}

void DefaultRowBrowser::GoToPrevious() {
    if (m_row > 0) --m_row;
}

DefaultRowBrowser::NewRow DefaultRowBrowser::AppendRow() {
    if (const int last = m_table.LastIndex(); last >= 0) {
        const FieldScaling& row = m_table.Row(last);
        const bool isComplete = !row.unit.empty() && row.max != 0;
        if (!isComplete || row.min >= row.max) {
            m_row = last;
            return isComplete ? NewRow::LastUpsideDown : NewRow::LastIncomplete;
        }
    }
    if (!m_table.AppendRow()) return NewRow::Full;
    m_row = m_table.LastIndex();
    return NewRow::Added;
}

bool DefaultRowBrowser::EnterUnit(std::string_view text) {
    if (!HasRow()) return false;
    const std::string before = Row().unit;
    m_table.SetUnit(m_row, text);
    if (Row().unit != kEndText) return true;
    m_table.SetUnit(m_row, before);
    return false;
}

void DefaultRowBrowser::EnterMin(std::string_view text) {
    if (HasRow()) m_table.SetMin(m_row, ParseDecimal(text));
}

bool DefaultRowBrowser::EnterMax(std::string_view text) {
    const int max = ParseDecimal(text);
    if (!HasRow() || max == kEndMarker) return false;
    m_table.SetMax(m_row, max);
    return true;
}

}  // namespace plotvane
