#include "framework/Png.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/PngReader.h"

namespace {

using plotvane::test::PngReader;

TEST(Png, HoldsEveryPixelOfThePicture) {
    const Picture picture(37, 21);  // sizes that are no multiple of two or four
    std::uint32_t colour = 0x010203;
    for (std::uint32_t& pixel : picture.Pixels()) pixel = (colour = colour * 69069 + 1) & 0xFFFFFF;

    const PngReader read(EncodePng(picture));

    EXPECT_EQ(read.width, 37u);
    EXPECT_EQ(read.height, 21u);
    EXPECT_TRUE(std::ranges::equal(read.pixels, picture.Pixels()));
}

TEST(Png, OfALargePictureHoldsItsLastPixelToo) {
    const Picture picture(1600, 900);
    picture.Pixels().back() = 0xFF8001;
    const PngReader read(EncodePng(picture));
    ASSERT_EQ(read.pixels.size(), std::size_t{1600} * 900);
    EXPECT_EQ(read.pixels.back(), 0xFF8001u);
    EXPECT_EQ(read.pixels.front(), 0u);
}

TEST(Png, BeginsAsTheFormatSays) {
    EXPECT_EQ(EncodePng(Picture(2, 2)).substr(0, 8), "\x89PNG\r\n\x1A\n");
}

TEST(Png, OfAPictureThatCouldNotBeMadeIsEmpty) {
    EXPECT_EQ(EncodePng(Picture(0, 0)), "");
}

}  // namespace
