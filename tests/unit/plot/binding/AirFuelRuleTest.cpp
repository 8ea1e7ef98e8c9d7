#include "plot/binding/AirFuelRule.h"

#include <gtest/gtest.h>

namespace plotvane {
namespace {

TEST(AirFuelRule, KnowsTheLambdaGroups) {
    for (const int group : {31, 34, 35, 191, 212, 216, 220, 222, 225, 227, 231, 233}) {
        EXPECT_TRUE(IsLambdaGroup(group)) << group;
    }
    for (const int group : {-1, 0, 1, 30, 32, 33, 36, 190, 192, 226, 232, 255}) {
        EXPECT_FALSE(IsLambdaGroup(group)) << group;
    }
}

TEST(AirFuelRule, ALambdaLiesBetween06And13AndHasNoUnit) {
    FieldSlot slot;
    slot.group = 34;
    for (const double value : {0.6, 1.0, 1.3}) {
        slot.value = value;
        EXPECT_TRUE(ShowsLambda(slot)) << value;
    }
    for (const double value : {0.59, 1.31, -1.0, 0.0}) {
        slot.value = value;
        EXPECT_FALSE(ShowsLambda(slot)) << value;
    }
    slot.value = 1.0;
    slot.unit = "V";
    EXPECT_FALSE(ShowsLambda(slot));
}

TEST(AirFuelRule, TheButtonsOfTheLowerRowsBeginTheOtherWayRound) {
    const int kButtons[] = {1101, 1102, 1103, 1104, 1106, 1105, 1107, 1108, 1110, 1109, 1111, 1112};
    for (int slot = 0; slot < kSlotCount; ++slot)
        EXPECT_EQ(1101 + AirFuelButtonOf(slot), kButtons[slot]) << slot;
}

}  // namespace
}  // namespace plotvane
