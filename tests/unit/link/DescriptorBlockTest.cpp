#include "link/DescriptorBlock.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace plotvane {
namespace {

constexpr int kNone = -1;

std::vector<std::byte> Bytes(const std::string& text) {
    std::vector<std::byte> bytes;
    for (const char c : text) bytes.push_back(static_cast<std::byte>(c));
    return bytes;
}

std::int64_t HandleIn(const std::string& block, int descriptor) {
    return InheritedHandleOf(Bytes(block), descriptor).value_or(kNone);
}

using namespace std::string_literals;

// Three descriptors, of which the last is an open pipe.
const std::string kWide = "\3\0\0\0"s + "\0\0\x09"s + "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"s +
                          "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"s + "\x34\x12\0\0\1\0\0\0"s;
const std::string kNarrow =
    "\3\0\0\0"s + "\0\0\x09"s + "\xFF\xFF\xFF\xFF"s + "\xFF\xFF\xFF\xFF"s + "\x34\x12\0\0"s;

TEST(DescriptorBlock, HasHandlesOfEightBytesFromA64BitHost) {
    EXPECT_EQ(HandleIn(kWide, 2), 0x1'0000'1234);
}

TEST(DescriptorBlock, HasHandlesOfFourBytesFromA32BitHost) {
    EXPECT_EQ(HandleIn(kNarrow, 2), 0x1234);
}

TEST(DescriptorBlock, HandlesOfFourBytesAreSignExtended) {
    EXPECT_EQ(HandleIn("\1\0\0\0\1\xFE\xFF\xFF\xFF"s, 0), -2);
    EXPECT_EQ(HandleIn("\1\0\0\0\1\0\0\0\x80"s, 0), -0x8000'0000LL);
}

TEST(DescriptorBlock, ADescriptorThatIsNotOpenHasNoHandle) {
    EXPECT_EQ(HandleIn(kWide, 0), kNone);
    EXPECT_EQ(HandleIn("\1\0\0\0\x08\x34\x12\0\0"s, 0), kNone);  // a pipe, but closed
}

TEST(DescriptorBlock, ADescriptorOutsideHasNoHandle) {
    for (const int descriptor : {-1, 3, 4, 2'147'483'647, -2'147'483'647 - 1}) {
        EXPECT_EQ(HandleIn(kWide, descriptor), kNone) << descriptor;
        EXPECT_EQ(HandleIn(kNarrow, descriptor), kNone) << descriptor;
    }
}

TEST(DescriptorBlock, OfAnyOtherSizeHasNoHandle) {
    for (const std::string& block : {kWide, kNarrow}) {
        for (std::size_t size = 0; size < block.size(); ++size) {
            EXPECT_EQ(HandleIn(block.substr(0, size), 2), kNone) << size;
        }
        EXPECT_EQ(HandleIn(block + '\0', 2), kNone);
    }
}

TEST(DescriptorBlock, WithACountThatIsTooLargeOrTooSmallHasNoHandle) {
    for (const std::string& count :
         {"\2\0\0\0"s, "\4\0\0\0"s, "\xFF\xFF\xFF\xFF"s, "\0\0\0\x80"s, "\0\0\0\0"s}) {
        EXPECT_EQ(HandleIn(count + kWide.substr(4), 2), kNone);
        EXPECT_EQ(HandleIn(count + kNarrow.substr(4), 2), kNone);
    }
    EXPECT_EQ(HandleIn("\0\0\0\0"s, 0), kNone);
}

}  // namespace
}  // namespace plotvane
