#include "app/DoubleClick.h"

#include <gtest/gtest.h>

namespace plotvane {
namespace {

constexpr DoubleClick::Limits kLimits{500, 2, 3};

TEST(DoubleClick, IsTwoPressesAtOnePlaceInAShortTime) {
    DoubleClick click;
    EXPECT_FALSE(click.TakePress(1000, 50, 60, kLimits));
    EXPECT_TRUE(click.TakePress(1500, 52, 57, kLimits));
}

TEST(DoubleClick, IsNotTwoPressesTooFarApart) {
    struct Second {
        std::uint64_t ms;
        int x;
        int y;
    };
    for (const Second& second : {Second{1501, 50, 60}, Second{1100, 53, 60}, Second{1100, 50, 64}}) {
        DoubleClick click;
        EXPECT_FALSE(click.TakePress(1000, 50, 60, kLimits));
        EXPECT_FALSE(click.TakePress(second.ms, second.x, second.y, kLimits));
    }
}

TEST(DoubleClick, MayBeginWithAPressThatCameTooLateForTheOneBefore) {
    DoubleClick click;
    EXPECT_FALSE(click.TakePress(1000, 50, 60, kLimits));
    EXPECT_FALSE(click.TakePress(2000, 50, 60, kLimits));
    EXPECT_TRUE(click.TakePress(2100, 50, 60, kLimits));
}

TEST(DoubleClick, IsOneForThreePresses) {
    DoubleClick click;
    EXPECT_FALSE(click.TakePress(1000, 50, 60, kLimits));
    EXPECT_TRUE(click.TakePress(1100, 50, 60, kLimits));
    EXPECT_FALSE(click.TakePress(1200, 50, 60, kLimits));
    EXPECT_TRUE(click.TakePress(1300, 50, 60, kLimits));
}

}  // namespace
}  // namespace plotvane
