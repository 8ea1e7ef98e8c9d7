#include "base/FileOperations.h"

#include <gtest/gtest.h>

#include <algorithm>

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

TEST(FileOperations, TellTheSizeOfAFileBeyondFourGigabytesToo) {
    const test::TempFolder folder;
    test::WriteBytes(folder / "a.cfg", "12345");
    EXPECT_EQ(SizeOfFile(folder / "a.cfg"), 5u);
    EXPECT_EQ(SizeOfFile(folder / "b.cfg"), 0u);
    constexpr std::uint64_t kHuge = (std::uint64_t{1} << 32) + 3;
    std::filesystem::resize_file(folder / "a.cfg", kHuge);  // holds no bytes on the disk
    EXPECT_EQ(SizeOfFile(folder / "a.cfg"), kHuge);
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

TEST(FileOperations, RemoveAFileAndOnlyThat) {
    const test::TempFolder folder;
    const auto name = folder.Path() / u"\u8ECA.cfg";
    test::WriteBytes(name, "x");
    RemoveFile(name);
    EXPECT_EQ(KindOf(name), FileKind::Missing);
    RemoveFile(name);
    EXPECT_EQ(KindOf(name), FileKind::Missing);
}

TEST(FileOperations, FindWhereAFileReallyIsAlsoOneThatIsStillMissing) {
    const test::TempFolder folder;
    test::WriteBytes(folder / "a.cfg", "x");
    test::WriteBytes(FinalPathOf(folder / "a.cfg"), "y");
    EXPECT_EQ(test::BytesOf(folder / "a.cfg"), "y");
    test::WriteBytes(FinalPathOf(folder / "b.cfg"), "z");
    EXPECT_EQ(test::BytesOf(folder / "b.cfg"), "z");
    EXPECT_EQ(FinalPathOf(folder / "a.cfg").filename(), "a.cfg");
}

TEST(FileOperations, LeaveAPathInAMissingFolderAsItIs) {
    const test::TempFolder folder;
    EXPECT_EQ(FinalPathOf(folder / "none" / "a.cfg"), folder / "none" / "a.cfg");
}

TEST(FileOperations, ListAFolder) {
    const test::TempFolder folder;
    EXPECT_FALSE(std::ranges::count(EntriesOf(folder.Path()), folder / "a.cfg"));
    test::WriteBytes(folder / "a.cfg", "x");
    EXPECT_EQ(std::ranges::count(EntriesOf(folder.Path()), folder / "a.cfg"), 1);
    EXPECT_TRUE(EntriesOf(folder / "none").empty());
}

}  // namespace
}  // namespace plotvane
