#pragma once

#include "model/FieldSlot.h"

namespace plotvane {

// Kilograms of air that burn one kilogram of fuel completely: lambda 1 as an air/fuel ratio.
constexpr double kStoichiometricRatio = 14.7;

// True for the measuring groups that carry lambda values.
bool IsLambdaGroup(int group);

// True if the slot's value can be a lambda: in a lambda group, without a unit, 0.6 to 1.3 inclusive.
bool ShowsLambda(const FieldSlot& slot);

// The number of the slot's "A/F" button, counted from the id of the first. The ids of the first two buttons
// of each lower row are exchanged.
constexpr int AirFuelButtonOf(int slot) {
    switch (slot) {
        case 4:
            return 5;
        case 5:
            return 4;
        case 8:
            return 9;
        case 9:
            return 8;
        default:
            return slot;
    }
}

}  // namespace plotvane
