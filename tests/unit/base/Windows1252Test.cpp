#include "base/Windows1252.h"

#include <gtest/gtest.h>

namespace plotvane {
namespace {

std::u16string Utf16Of(std::string_view windows1252) {
    std::u16string text;
    AppendUtf16(text, windows1252);
    return text;
}

// The code page leaves 81, 8D, 8F, 90 and 9D undefined; they keep their number.
TEST(AppendUtf16, KnowsTheCharactersThatTheCodePageHasInPlaceOfControls) {
    EXPECT_EQ(
        Utf16Of("\x80\x81\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8D\x8E\x8F"),
        u"\u20AC\x0081\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\x008D\u017D\x008F");
    EXPECT_EQ(
        Utf16Of("\x90\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B\x9C\x9D\x9E\x9F"),
        u"\x0090\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\x009D\u017E\u0178");
}

TEST(AppendUtf16, TakesEveryOtherByteForTheCharacterOfItsNumber) {
    for (int byte = 0; byte < 256; ++byte) {
        if (byte >= 0x80 && byte < 0xA0) continue;
        EXPECT_EQ(Utf16Of(std::string(1, static_cast<char>(byte))),
                  std::u16string(1, static_cast<char16_t>(byte)))
            << byte;
    }
}

TEST(AppendUtf16, AddsToTheTextThatIsThere) {
    std::u16string text = u"x";
    AppendUtf16(text, "\xB0");
    EXPECT_EQ(text, u"x\u00B0");
}

TEST(AppendUtf8, WritesOneTwoOrThreeBytes) {
    std::string text = "x";
    AppendUtf8(text, "a\x7F\x81\xB0\xFF\x80\x99");
    EXPECT_EQ(text, "xa\x7F\xC2\x81\xC2\xB0\xC3\xBF\xE2\x82\xAC\xE2\x84\xA2");
}

}  // namespace
}  // namespace plotvane
