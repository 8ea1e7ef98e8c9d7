#include "files/FileName.h"

#include <gtest/gtest.h>

#include "files/TextInput.h"
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

}  // namespace
}  // namespace plotvane
