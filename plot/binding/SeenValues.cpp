#include "plot/binding/SeenValues.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace plotvane {
namespace {

constexpr double kMarginShare = 1.0 / 20.0;  // of the span, at each end

int ToLimit(double wholeNumber) {
    using Limits = std::numeric_limits<int>;
    return static_cast<int>(std::clamp<double>(wholeNumber, Limits::min(), Limits::max()));
}

}  // namespace

void SeenValues::Take(const SlotTable& slots) {
    for (int slot = 0; slot < kSlotCount; ++slot) {
        const FieldSlot& field = slots[slot];
        if (!field.IsActive() || !std::isfinite(field.value)) continue;
        Seen& seen = m_slots[slot];
        if (!seen.IsOf(field)) seen = {field.group, field.field, field.value, field.value};
        seen.lowest = std::min(seen.lowest, field.value);
        seen.highest = std::max(seen.highest, field.value);
    }
}

std::optional<ScaleRange> SeenValues::RangeAround(int slot, const FieldSlot& field) const {
    const Seen& seen = m_slots[slot];
    if (!field.IsActive() || !seen.IsOf(field) || seen.lowest == seen.highest) return std::nullopt;
    const double margin = (seen.highest - seen.lowest) * kMarginShare;
    return ScaleRange{ToLimit(std::floor(seen.lowest - margin)), ToLimit(std::ceil(seen.highest + margin))};
}

}  // namespace plotvane
