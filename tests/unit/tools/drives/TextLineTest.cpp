#include "tools/drives/TextLine.h"

#include <gtest/gtest.h>

#include "tests/support/TempFolder.h"

namespace plotvane {
namespace {

TEST(TextLine, ReadsLineByLineAndDropsWhatIsTooLong) {
    const test::TempFolder folder;
    test::WriteBytes(folder / "x.txt", "abc\r\n\nabcd\nlast");
    TextInput input(folder / "x.txt");
    std::string line;
    for (const char* expected : {"abc", "", "abc", "las"}) {
        EXPECT_TRUE(ReadTextLine(input, line, 3));
        EXPECT_EQ(line, expected);
    }
    EXPECT_FALSE(ReadTextLine(input, line, 3));
}

}  // namespace
}  // namespace plotvane
