#include "logs/LabelTable.h"

namespace plotvane {
namespace {

const std::string kNoText;

}  // namespace

void LabelTable::Reset() {
    for (std::string& text : m_texts) text.clear();
}

const std::string& LabelTable::FieldName(int group, int field) const {
    return IsField(field) ? Text(group, field) : kNoText;
}

const std::string& LabelTable::FieldSecondText(int group, int field) const {
    return IsField(field) ? Text(group, kFields + field) : kNoText;
}

void LabelTable::SetGroupTitle(int group, std::string_view title) {
    if (IsGroup(group)) m_texts[IndexOf(group, 0)] = title.substr(0, kMaxNameLength);
}

void LabelTable::SetField(int group, int field, std::string_view name, std::string_view secondText) {
    if (!IsGroup(group) || !IsField(field)) return;
    m_texts[IndexOf(group, field)] = name.substr(0, kMaxNameLength);
    m_texts[IndexOf(group, kFields + field)] = secondText.substr(0, kMaxSecondTextLength);
}

std::size_t LabelTable::IndexOf(int group, int text) {
    const int index = (group - 1) * kTexts + text;
    return static_cast<std::size_t>(index);
}

const std::string& LabelTable::Text(int group, int text) const {
    return IsGroup(group) ? m_texts[IndexOf(group, text)] : kNoText;
}

}  // namespace plotvane
