#include "scaling/PresetColours.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <span>

namespace plotvane {
namespace {

// The numbers that a new Prefs.cfg has for them, from "Red" to "White".
constexpr std::array<Colour, 14> kInFiles = {0x0000FF, 0x00FF00, 0x00FFFF, 0xFFC0C0, 0x00A0FF,
                                             0xFFFF00, 0x00A000, 0x7F0000, 0x0060A0, 0xC0C0FF,
                                             0xFFA000, 0xA0A000, 0x000000, 0xFFFFFF};

TEST(PresetColours, AreThoseOfTheList) {
    EXPECT_EQ(kPresetColours, kInFiles);
}

TEST(PresetColours, TheFirstTwelveAreTheTraces) {
    EXPECT_TRUE(std::ranges::equal(DefaultTraceColours(), std::span(kInFiles).first<12>()));
}

}  // namespace
}  // namespace plotvane
