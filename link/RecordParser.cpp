#include "link/RecordParser.h"

#include <algorithm>
#include <optional>

#include "base/Numbers.h"

namespace plotvane {
namespace {

constexpr std::size_t kSearchLength = 41;    // a field's "G" must be among this many characters
constexpr std::size_t kMaxTextLength = 100;  // of a value and of a unit
constexpr std::size_t kTagLength = 3;
constexpr std::string_view kChannelTag = "ZER";
constexpr int kFieldsOfChannelGroup = kChannelCount;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool IsNumeric(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return IsDigit(c) || c == '.' || c == '-'; });
}

// Walks through the items of one record. No step goes beyond the end of the text.
class ItemReader {
public:
    ItemReader(std::string_view text, std::size_t position)
        : m_text(text), m_position(std::min(position, text.size())) {}

    // Where the next "G" stands, if near enough.
    std::optional<std::size_t> FindTag() const {
        const std::size_t found = m_text.substr(m_position, kSearchLength).find('G');
        if (found == std::string_view::npos) return std::nullopt;
        return m_position + found;
    }

    bool IsGroupNumberAt(std::size_t tag) const {
        const auto item = m_text.substr(tag, kTagLength + 2);
        return item.size() == kTagLength + 2 && IsDigit(item[1]) && IsDigit(item[2]) && IsDigit(item[3]) &&
               item[4] == ',';
    }

    bool IsChannelTagAt(std::size_t tag) const { return m_text.substr(tag, kTagLength + 2) == "GZER,"; }

    void MoveTo(std::size_t position) { m_position = position; }

    void Skip(std::size_t count) { m_position = std::min(m_position + count, m_text.size()); }

    bool Take(char expected) {
        if (m_position == m_text.size() || m_text[m_position] != expected) return false;
        ++m_position;
        return true;
    }

    std::string_view TakeCharacters(std::size_t count) {
        const auto taken = m_text.substr(m_position, count);
        m_position += taken.size();
        return taken;
    }

    // The text up to the next comma, at which the reader then stands; nothing if it is too long or the
    // record ends without a comma.
    std::optional<std::string_view> TakeText() {
        const std::size_t length = m_text.substr(m_position, kMaxTextLength + 1).find(',');
        if (length == std::string_view::npos) return std::nullopt;
        return TakeCharacters(length);
    }

private:
    std::string_view m_text;
    std::size_t m_position;
};

void ClearSlot(FieldSlot& slot) {
    slot.group = 0;
    slot.field = 0;
    slot.value = 0.0;
    slot.unit.clear();
}

bool ParseField(ItemReader& items, FieldSlot& slot, SlotTable& slots, RunState& state) {
    ClearSlot(slot);

    const auto tagPosition = items.FindTag();
    if (!tagPosition) return false;
    if (items.IsGroupNumberAt(*tagPosition) || items.IsChannelTagAt(*tagPosition)) items.MoveTo(*tagPosition);
    if (!items.Take('G')) return false;
    const std::string_view tag = items.TakeCharacters(kTagLength);
    const bool isChannelValue = tag == kChannelTag;
    if (isChannelValue) {
        state.tenChannels = true;
    } else {
        slot.group = ParseDecimal(tag);
        if (slot.group == 0) {
            items.Skip(
                3);  // of the four commas of an empty slot; the search for the next "G" passes the last
            return true;
        }
    }

    items.Skip(1);
    if (!items.Take('F')) return false;
    const std::string_view digit = items.TakeCharacters(1);
    if (digit.empty() || !IsDigit(digit.front())) return false;
    slot.field = digit.front() - '0';

    items.Skip(1);
    const auto valueText = items.TakeText();
    if (!valueText) return false;
    const double value = IsNumeric(*valueText) ? ParseDouble(*valueText) : 0.0;
    if (isChannelValue) {
        slots.channelValues[slot.field] = value;
    } else {
        slot.value = value;
    }

    items.Skip(1);
    items.Take(' ');
    const auto unit = items.TakeText();
    if (!unit) return false;
    slot.unit.assign(*unit);
    items.Skip(1);
    return true;
}

}  // namespace

bool ParseRecord(std::string_view text, std::size_t position, SlotTable& slots, RunState& state) {
    ItemReader items(text, position);
    state.hadTenChannels = state.tenChannels;
    state.tenChannels = false;

    const auto firstTag = items.FindTag();
    if (!firstTag) return false;
    const int fieldsOfFirstGroup = items.IsGroupNumberAt(*firstTag) ? kSlotColumns : kFieldsOfChannelGroup;

    for (int slot = 0; slot < fieldsOfFirstGroup; ++slot) {
        if (!ParseField(items, slots[slot], slots, state)) return false;
    }
    for (int slot = kSlotColumns; slot < kSlotCount; ++slot) {
        if (!ParseField(items, slots[slot], slots, state)) return false;
    }
    return true;
}

}  // namespace plotvane
