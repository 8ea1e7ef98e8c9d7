#include "files/FileOperations.h"

#include <gtest/gtest.h>

#include "tests/support/TempFolder.h"

namespace plotvane {
namespace {

TEST(FileOperations, TellFilesFromFoldersAndFromWhatIsMissing) {
    const test::TempFolder folder;
    test::WriteBytes(folder / "a.cfg", "x");
    EXPECT_EQ(KindOf(folder / "a.cfg"), FileKind::File);
    EXPECT_EQ(KindOf(folder.Path()), FileKind::Other);
    EXPECT_EQ(KindOf(folder / "b.cfg"), FileKind::Missing);
    EXPECT_EQ(KindOf(folder / "none" / "b.cfg"), FileKind::Missing);
    EXPECT_TRUE(IsFolder(folder.Path()));
    EXPECT_FALSE(IsFolder(folder / "a.cfg"));
    EXPECT_FALSE(IsFolder(folder / "none"));
}

TEST(FileOperations, SeeThatAFileIsProtected) {
    const test::TempFolder folder;
    test::WriteBytes(folder / "a.cfg", "x");
    std::filesystem::permissions(folder / "a.cfg", std::filesystem::perms::owner_read);
    EXPECT_EQ(KindOf(folder / "a.cfg"), FileKind::Protected);
    std::filesystem::permissions(folder / "a.cfg", std::filesystem::perms::owner_all);
}

TEST(FileOperations, MakeEveryFolderThatIsMissing) {
    const test::TempFolder folder;
    MakeFolders(folder / "a" / "b" / "c");
    EXPECT_TRUE(IsFolder(folder / "a" / "b" / "c"));
    MakeFolders(folder / "a" / "b" / "c");
    EXPECT_TRUE(IsFolder(folder / "a" / "b" / "c"));
}

TEST(FileOperations, LeaveAFileWhereAFolderShouldBe) {
    const test::TempFolder folder;
    test::WriteBytes(folder / "a", "x");
    MakeFolders(folder / "a" / "b");
    EXPECT_EQ(test::BytesOf(folder / "a"), "x");
}

TEST(FileOperations, MakeNoFolderWithoutAName) {
    MakeFolders("");
    MakeFolders(std::filesystem::temp_directory_path().root_path());
    EXPECT_FALSE(IsFolder(""));
}

TEST(FileOperations, RenameOverAFile) {
    const test::TempFolder folder;
    test::WriteBytes(folder / "new", "new");
    test::WriteBytes(folder / "old", "old");
    EXPECT_TRUE(RenameFile(folder / "new", folder / "old"));
    EXPECT_EQ(test::BytesOf(folder / "old"), "new");
    EXPECT_EQ(KindOf(folder / "new"), FileKind::Missing);
}

TEST(FileOperations, RenameNothingThatIsMissing) {
    const test::TempFolder folder;
    test::WriteBytes(folder / "old", "old");
    EXPECT_FALSE(RenameFile(folder / "new", folder / "old"));
    EXPECT_EQ(test::BytesOf(folder / "old"), "old");
}

TEST(FileOperations, RemoveAFileAndOnlyThat) {
    const test::TempFolder folder;
    const auto name = folder.Path() / u"\u8ECA.cfg";
    test::WriteBytes(name, "x");
    RemoveFile(name);
    EXPECT_EQ(KindOf(name), FileKind::Missing);
    RemoveFile(name);
    EXPECT_EQ(KindOf(name), FileKind::Missing);
}

}  // namespace
}  // namespace plotvane
