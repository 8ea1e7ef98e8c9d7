#include "plot/chart/GridOverlay.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

namespace plotvane {
namespace {

using Pixels = std::vector<std::uint32_t>;

ChartPixels View(Pixels& pixels, int width) {
    return {pixels.data(), width, static_cast<int>(pixels.size()) / width};
}

GridOverlay GridFrom(Pixels picture, int width) {
    GridOverlay grid;
    grid.TakeFrom(View(picture, width));
    return grid;
}

TEST(GridOverlay, ColoursOfGridAndTracesAreOred) {
    GridOverlay grid = GridFrom({0, 0x402010, 0xFFFFFF, 0}, 4);
    Pixels picture{0x010220, 0x010220, 0x010220, 0};
    grid.LayOn(View(picture, 4));
    EXPECT_EQ(picture, (Pixels{0x010220, 0x412230, 0xFFFFFF, 0}));
}

TEST(GridOverlay, LiftingItOffRestoresThePixelsBelow) {
    GridOverlay grid = GridFrom({0xFFFFFF, 0, 0xFFFFFF, 0xFFFFFF, 0, 0x1}, 3);
    const Pixels traces{1, 2, 3, 4, 5, 6};
    Pixels picture = traces;
    grid.LayOn(View(picture, 3));
    EXPECT_EQ(picture, (Pixels{0xFFFFFF, 2, 0xFFFFFF, 0xFFFFFF, 5, 7}));
    grid.LiftOff(View(picture, 3));
    EXPECT_EQ(picture, traces);
}

TEST(GridOverlay, APixelWithOnlyAHighByteIsNotGrid) {
    GridOverlay grid = GridFrom({0xFF000000, 0x55000001}, 2);
    Pixels picture{0x10, 0x10};
    grid.LayOn(View(picture, 2));
    EXPECT_EQ(picture[0], 0x10u);
    EXPECT_EQ(picture[1] & 0xFFFFFF, 0x11u);
}

TEST(GridOverlay, TakingANewGridForgetsTheOldOne) {
    GridOverlay grid = GridFrom({1, 1, 1, 1}, 2);
    Pixels next{0, 2};
    grid.TakeFrom(View(next, 2));
    Pixels picture{0x10, 0x10};
    grid.LayOn(View(picture, 2));
    EXPECT_EQ(picture, (Pixels{0x10, 0x12}));
}

TEST(GridOverlay, APictureOfAnotherSizeIsLeftAlone) {
    GridOverlay grid = GridFrom({1, 1, 1, 1, 1, 1}, 3);
    for (const int width : {1, 2, 6}) {
        SCOPED_TRACE(width);
        Pixels picture{8, 8, 8, 8, 8, 8};
        grid.LayOn(View(picture, width));
        grid.LiftOff(View(picture, width));
        EXPECT_EQ(picture, (Pixels{8, 8, 8, 8, 8, 8}));
    }
    Pixels shorter{8, 8, 8};
    grid.LayOn(View(shorter, 3));
    EXPECT_EQ(shorter, (Pixels{8, 8, 8}));
}

TEST(GridOverlay, OnAPartOfAPictureItLeavesTheRestAlone) {
    Pixels drawn(8, 0x1);
    GridOverlay grid;
    grid.TakeFrom({drawn.data(), 3, 2, 4});
    // The part has moved to the right by one pixel.
    Pixels picture{16, 16, 16, 16, 32, 32, 32, 32};
    grid.LayOn({picture.data() + 1, 3, 2, 4});
    EXPECT_EQ(picture, (Pixels{16, 17, 17, 17, 32, 33, 33, 33}));
    grid.LiftOff({picture.data() + 1, 3, 2, 4});
    EXPECT_EQ(picture, (Pixels{16, 16, 16, 16, 32, 32, 32, 32}));
}

TEST(GridOverlay, WithoutAPictureItDoesNothing) {
    GridOverlay grid;
    grid.TakeFrom({});
    grid.LayOn({});
    grid.LiftOff({});
    Pixels picture{8};
    grid.LayOn(View(picture, 1));
    EXPECT_EQ(picture, (Pixels{8}));
}

// Moves traces below the grid and compares with two pictures that are combined again each time.
TEST(GridOverlay, MovingThePixelsBelowGivesTheSameAsCombiningTwoPictures) {
    constexpr int kWidth = 37, kHeight = 11;
    constexpr PixelRect kArea{5, 2, 34, 9};
    for (const std::uint32_t background : {0x000000u, 0x281400u}) {
        SCOPED_TRACE(background);
        std::mt19937 random{7};
        Pixels drawn(std::size_t{kWidth} * kHeight, background);
        for (int i = 0; i < 120; ++i) drawn[random() % drawn.size()] = random() & 0xFFFFFF;
        GridOverlay grid = GridFrom(drawn, kWidth);

        Pixels traces(drawn.size(), background), picture = traces;
        grid.LayOn(View(picture, kWidth));
        for (int sample = 0; sample < 200; ++sample) {
            grid.LiftOff(View(picture, kWidth));
            for (Pixels* moved : {&traces, &picture}) View(*moved, kWidth).ScrollLeft(kArea, sample % 4);
            for (int dot = 0; dot < 5; ++dot) {
                const std::size_t place = random() % drawn.size();
                traces[place] = picture[place] = random() & 0xFFFFFF;
            }
            grid.LayOn(View(picture, kWidth));

            Pixels combined = traces;
            for (std::size_t i = 0; i < combined.size(); ++i) combined[i] |= drawn[i];
            ASSERT_EQ(picture, combined) << sample;
        }
    }
}

}  // namespace
}  // namespace plotvane
