#include "app/TitleHint.h"

#include <gtest/gtest.h>

namespace plotvane {
namespace {

TEST(TitleHint, IsAnArrowThatShrinksTowardsTheIcon) {
    EXPECT_EQ(TitleHint(14, "Click icon for preferences"), "<===============Click icon for preferences");
    EXPECT_EQ(TitleHint(1, "Click icon for preferences"), "<==Click icon for preferences");
    EXPECT_EQ(TitleHint(0, "Click icon for preferences"), "<=Click icon for preferences");
}

}  // namespace
}  // namespace plotvane
