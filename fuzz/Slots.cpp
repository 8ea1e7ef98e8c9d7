#include "fuzz/Slots.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "model/RecordBuffer.h"
#include "tests/support/Promise.h"

namespace plotvane::fuzz {

using test::Require;

namespace {

constexpr std::size_t kMaxText = 100;

// All digits, without an exponent, because the host never writes one.
std::string PlainNumber(double value) {
    std::array<char, 512> digits;
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed);
    return {digits.data(), end.ptr};
}

bool IsEqual(const FieldSlot& a, const FieldSlot& b) {
    return a.group == b.group && a.field == b.field && a.value == b.value && a.unit == b.unit;
}

}  // namespace

void RequireSaneSlots(const SlotTable& slots) {
    for (const FieldSlot& slot : slots.slots) {
        Require(slot.group >= -99 && slot.group <= 999, "a group is three characters");
        Require(slot.field >= 0 && slot.field <= 9, "a field is one digit");
        Require(std::isfinite(slot.value), "a value is finite");
        Require(slot.unit.size() <= kMaxText, "a unit has at most 100 characters");
        Require(slot.unit.find(',') == std::string::npos, "a unit ends at a comma");
        Require(slot.unit.find('\0') == std::string::npos, "a record ends at a NUL");
    }
    Require(std::ranges::all_of(slots.channelValues, [](double value) { return std::isfinite(value); }),
            "the value of a channel is finite");
}

bool AreEqual(const SlotTable& a, const SlotTable& b) {
    return std::ranges::equal(a.slots, b.slots, IsEqual) && a.channelValues == b.channelValues;
}

std::string RecordOf(const SlotTable& slots) {
    std::string record;
    for (const FieldSlot& slot : slots.slots) {
        if (slot.group == 0) {
            record += "G000,,,,";
            continue;
        }
        const std::string value = PlainNumber(slot.value);
        if (slot.group < 0 || value.size() > kMaxText) return {};
        const std::string group = std::to_string(1000 + slot.group);
        record += "G" + group.substr(1) + ",F" + std::to_string(slot.field) + "," + value + ", ";
        record += slot.unit + ",";
    }
    return record.size() <= RecordBuffer::kMaxTextLength ? record : std::string{};
}

}  // namespace plotvane::fuzz
