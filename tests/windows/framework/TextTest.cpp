#include "framework/Text.h"

#include <gtest/gtest.h>

#include <set>

#include "tests/windows/support/test_dialogs.h"

namespace {

TEST(Text, EveryByteComesBackFromUtf16) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) all.push_back(static_cast<char>(byte));

    const std::wstring wide = ToWide(all);

    EXPECT_EQ(std::set<wchar_t>(wide.begin(), wide.end()).size(), 256u);
    EXPECT_EQ(ToBytes(wide), all);
}

TEST(Text, IsCodePage1252WhateverTheSystemHas) {
    EXPECT_EQ(ToWide("\xB0"
                     "C"),
              L"\u00B0C");
    EXPECT_EQ(ToWide("\x80"), L"\u20AC");
    EXPECT_EQ(ToBytes(L"\u00B5g"), "\xB5g");
}

TEST(Text, CharactersWithoutAByteBecomeQuestionMarks) {
    EXPECT_EQ(ToBytes(L"a\u0416b"), "a?b");
    EXPECT_EQ(ToBytes(L"\u0100"), "?");  // not the similar A: that would be another text
    EXPECT_EQ(ToBytes(L"a\U0001F697b"), "a??b");
}

TEST(Text, NothingStaysNothing) {
    EXPECT_EQ(ToWide(""), L"");
    EXPECT_EQ(ToBytes(L""), "");
    EXPECT_STREQ(WideText{""}.c_str(), L"");
}

TEST(WideText, HoldsShortAndLongTextsAlike) {
    for (const std::size_t length : {1u, 254u, 255u, 256u, 257u, 5000u}) {
        const std::string text(length, '\xB0');
        const WideText wide{text};
        EXPECT_EQ(wide.Length(), static_cast<int>(length));
        EXPECT_EQ(wide.c_str(), std::wstring(length, L'\u00B0'));
    }
}

TEST(LoadText, GivesTheTextOfTheStringTable) {
    EXPECT_EQ(LoadText(IDS_TEST_TEXT), "Text of the \xB0 table");
}

TEST(LoadText, IsEmptyForAnUnknownNumber) {
    EXPECT_EQ(LoadText(64000), "");
}

}  // namespace
