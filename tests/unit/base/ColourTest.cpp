#include "base/Colour.h"

#include <gtest/gtest.h>

namespace plotvane {
namespace {

TEST(Colour, HasRedInTheLowestByteAndBlueInTheThird) {
    EXPECT_EQ(MakeColour(0x11, 0x22, 0x33), 0x332211U);
    EXPECT_EQ(RedOf(0x332211), 0x11);
    EXPECT_EQ(GreenOf(0x332211), 0x22);
    EXPECT_EQ(BlueOf(0x332211), 0x33);
}

TEST(Colour, IsDrawnWithoutItsHighestByte) {
    EXPECT_EQ(DrawableColour(0xFF332211), 0x332211U);
    EXPECT_EQ(DrawableColour(0xFFFFFF), kWhite);
    EXPECT_EQ(BlueOf(0x01000000), 0);
}

}  // namespace
}  // namespace plotvane
