#include "tools/drives/RecordText.h"

#include <algorithm>

#include "base/Numbers.h"

namespace plotvane {

RecordText::RecordText(std::string_view identifier) : m_text(identifier) {
    m_text += ',';
}

void RecordText::AddField(int group, int field, std::string_view value, std::string_view unit) {
    constexpr int kTagDigits = 3;
    std::string tag;
    AppendDecimal(tag, group);
    m_text += 'G';
    m_text.append(static_cast<std::size_t>(kTagDigits) - std::min<std::size_t>(tag.size(), kTagDigits), '0');
    m_text += tag;
    m_text += ",F";
    AppendDecimal(m_text, field);
    m_text += ',';
    m_text += value;
    m_text += ',';
    m_text += unit;
    m_text += ',';
}

void RecordText::AddChannel(int field, std::string_view value) {
    m_text += "GZER,F";
    AppendDecimal(m_text, field);
    m_text += ',';
    m_text += value;
    m_text += ",,";
}

void RecordText::AddEmptySlot() {
    m_text += "G000,,,,";
}

std::optional<PipeBlock> MakeBlock(std::string_view record) {
    constexpr std::string_view kControlCodes = "\xFF\xFE\xFD";
    if (record.empty() || record.size() > RecordBuffer::kBlockSize ||
        kControlCodes.find(record.front()) != std::string_view::npos) {
        return std::nullopt;
    }
    PipeBlock block{};
    std::ranges::copy(record, block.begin());
    return block;
}

}  // namespace plotvane
