#include "base/FreshFile.h"

#include <gtest/gtest.h>

#include "tests/support/TempFolder.h"

namespace plotvane {
namespace {

TEST(FreshFile, TakesItsPlaceWholeAfterAllPieces) {
    const test::TempFolder folder;
    test::WriteBytes(folder / "table.csv", "old");
    {
        FreshFile file(folder.Path());
        EXPECT_TRUE(file.Append("one\n"));
        EXPECT_TRUE(file.Append(std::string_view("\0two", 4)));
        EXPECT_TRUE(file.Flush());
        EXPECT_EQ(test::BytesOf(folder / "table.csv"), "old");  // until all of the new one is there
        EXPECT_TRUE(file.TakePlaceOf(folder / "table.csv"));
    }
    EXPECT_EQ(test::BytesOf(folder / "table.csv"), std::string("one\n\0two", 8));
}

TEST(FreshFile, CanBeReadAsSoonAsItHasItsPlace) {
    const test::TempFolder folder;
    FreshFile file(folder.Path());
    EXPECT_TRUE(file.Append("new"));
    EXPECT_TRUE(file.TakePlaceOf(folder / "table.csv"));
    EXPECT_EQ(test::BytesOf(folder / "table.csv"), "new");
    EXPECT_FALSE(file.Append("more"));
}

TEST(FreshFile, ThatIsGivenUpLeavesTheFolderAsItWas) {
    const test::TempFolder folder;
    test::WriteBytes(folder / "table.csv", "old");
    {
        FreshFile file(folder.Path());
        EXPECT_TRUE(file.Append("half a ta"));
    }
    EXPECT_EQ(test::BytesOf(folder / "table.csv"), "old");
    EXPECT_FALSE(std::filesystem::exists(folder / "none.csv"));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1);
}

TEST(FreshFile, InAFolderThatIsMissingAnswersFalseToAll) {
    const test::TempFolder folder;
    FreshFile file(folder / "none");
    EXPECT_FALSE(file.Append("x"));
    EXPECT_FALSE(file.Flush());
    EXPECT_FALSE(file.Rename(folder / "none" / "a", IfTaken::Fail));
    EXPECT_FALSE(file.TakePlaceOf(folder / "none" / "a"));
}

TEST(FreshFile, DoesNotTakeANameThatIsTakenUnlessItMayReplace) {
    const test::TempFolder folder;
    test::WriteBytes(folder / "a", "old");
    FreshFile file(folder.Path());
    EXPECT_TRUE(file.Append("new"));
    EXPECT_FALSE(file.Rename(folder / "a", IfTaken::Fail));
    EXPECT_EQ(test::BytesOf(folder / "a"), "old");
}

TEST(RemoveLeftovers, RemovesWhatKilledProgramsHaveLeftAndNothingElse) {
    const test::TempFolder folder;
    test::WriteBytes(folder / "plotvane-0123456789abcdef.tmp", "half");
    test::WriteBytes(folder / "plotvane-notes.tmp", "a user's");
    FreshFile beingWritten(folder.Path());
    ASSERT_TRUE(beingWritten.Append("x"));
    RemoveLeftovers(folder.Path());
    EXPECT_FALSE(std::filesystem::exists(folder / "plotvane-0123456789abcdef.tmp"));
    EXPECT_TRUE(std::filesystem::exists(folder / "plotvane-notes.tmp"));
    EXPECT_TRUE(beingWritten.TakePlaceOf(folder / "a"));
}

}  // namespace
}  // namespace plotvane
