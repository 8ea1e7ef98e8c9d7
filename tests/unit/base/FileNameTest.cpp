#include "base/FileName.h"

#include <gtest/gtest.h>

#include "base/TextInput.h"
#include "tests/support/TempFolder.h"

namespace plotvane {
namespace {

TEST(PathFromText, TakesTheBytesAsWindows1252) {
    EXPECT_EQ(PathFromText("038-906-019.LBL").u16string(), u"038-906-019.LBL");
    EXPECT_EQ(PathFromText("\xB0\xFC\x80\x9F\x81").u16string(), u"\u00B0\u00FC\u20AC\u0178\u0081");
    EXPECT_EQ(PathFromText("").u16string(), u"");
}

TEST(PathFromText, NamesAFileThatCanBeOpened) {
    const test::TempFolder folder;
    const auto path = folder.Path() / PathFromText("M\xFCller.LBL");
    test::WriteBytes(path, "x");
    EXPECT_TRUE(TextInput(path).IsOpen());
    EXPECT_TRUE(std::filesystem::exists(folder.Path() / std::filesystem::path(u"M\u00FCller.LBL")));
}

TEST(IsDeviceName, KnowsTheDevicesInAnyLetterCaseAndWithAnyExtension) {
    for (const auto* name : {"CON", "con", "Prn", "AUX", "nul", "COM1", "com9", "LPT1", "COM0", "COM\xB9",
                             "CONIN$", "conout$", "NUL.LBL", "nul .txt", "com1.a.b", "aux:"})
        EXPECT_TRUE(IsDeviceName(name)) << name;
}

TEST(IsDeviceName, LetsOtherNamesPass) {
    for (const auto* name : {"", ".", "..", "CONSOLE", "COM", "COM10", "COMA", "NULL", "xNUL", "OBD.SCL",
                             "038-906-019-FT.SCL", "-NUL", "A.NUL"})
        EXPECT_FALSE(IsDeviceName(name)) << name;
}

TEST(NamesDevice, LooksAtTheLastNameOfAPath) {
    const std::filesystem::path folder = "LOGS";
    for (const auto* name : {u"COM1", u"con", u"nul.csv", u"LPT\u00B9", u"aux:"}) {
        EXPECT_TRUE(NamesDevice(name));
        EXPECT_TRUE(NamesDevice(folder / name));
    }
    for (const auto* name : {u"COM\u0131", u"COM1x.csv", u"\u041A\u041E\u041C1", u""}) {
        EXPECT_FALSE(NamesDevice(folder / name));
    }
    EXPECT_FALSE(NamesDevice(std::filesystem::path("COM1") / "x.csv"));
}

TEST(IsSafeFileName, AcceptsPlainNames) {
    for (const std::string_view name :
         {"038-906-019-FT.SCL", "OBD.SCL", "a", ".SCL", "-CON.SCL", "CONSOLE.SCL", "COM.SCL", "COM10.SCL",
          "LPT.SCL", "NULL.SCL", "my con.SCL", "f\xFCr 2.SCL", "a..b",
          "'a' & (b) [c] {d} #1 $2 %3 ~4 !5 @6 ^7 +8 =9;"}) {
        EXPECT_TRUE(IsSafeFileName(name)) << name;
    }
}

TEST(IsSafeFileName, RefusesWhatLeavesTheFolder) {
    for (const std::string_view name :
         {"", ".", "..", "../a.SCL", "..\\a.SCL", "/etc/a", "C:a.SCL", "\\\\host\\a", "a/b"}) {
        EXPECT_FALSE(IsSafeFileName(name)) << name;
    }
}

TEST(IsSafeFileName, RefusesWildcardsAndControlBytes) {
    for (const std::string_view name : {"a*.SCL", "a?.SCL", "a\"b", "a<b", "a>b", "a|b", "a\tb", "a\nb",
                                        "\x01.SCL", "a\x1F", "file:stream"}) {
        EXPECT_FALSE(IsSafeFileName(name)) << name;
    }
    EXPECT_FALSE(IsSafeFileName(std::string_view("a\0b", 3)));
}

TEST(IsSafeFileName, RefusesATrailingDotOrBlank) {
    for (const std::string_view name : {"a.", "a.SCL.", "a ", "a.SCL ", " ", "..."}) {
        EXPECT_FALSE(IsSafeFileName(name)) << name;
    }
}

TEST(IsSafeFileName, RefusesDeviceNamesWithAnyExtensionAndLetterCase) {
    for (const std::string_view name :
         {"CON", "con.SCL", "Nul.SCL", "PRN.SCL", "AUX.SCL", "COM1.SCL", "com9.SCL", "LPT1.SCL", "lpt9",
          "NUL .SCL", "NUL.a.SCL", "CONIN$", "conout$.SCL", "COM\xB9.SCL", "LPT\xB3.SCL", "com\xB2"}) {
        EXPECT_FALSE(IsSafeFileName(name)) << name;
    }
}

}  // namespace
}  // namespace plotvane
