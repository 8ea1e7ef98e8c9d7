#include "plot/binding/AirFuelRule.h"

#include <algorithm>
#include <array>

namespace plotvane {

bool IsLambdaGroup(int group) {
    constexpr std::array kGroups = {31, 34, 35, 191, 212, 216, 220, 222, 225, 227, 231, 233};
    return std::ranges::find(kGroups, group) != kGroups.end();
}

bool ShowsLambda(const FieldSlot& slot) {
    return IsLambdaGroup(slot.group) && slot.unit.empty() && slot.value >= 0.6 && slot.value <= 1.3;
}

}  // namespace plotvane
