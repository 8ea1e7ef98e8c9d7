#include "base/AtomicFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <thread>

#include "base/OwnFile.h"
#include "tests/support/TempFolder.h"

namespace plotvane {
namespace {

int FilesIn(const std::filesystem::path& folder) {
    const auto entries = std::filesystem::directory_iterator(folder);
    return static_cast<int>(std::distance(begin(entries), end(entries)));
}

TEST(ReplaceTextFile, WritesLineEndsAsCrLf) {
    const test::TempFolder folder;
    EXPECT_TRUE(ReplaceTextFile(folder / "a.cfg", "x=1\ny=2\n"));
    EXPECT_EQ(test::BytesOf(folder / "a.cfg"), "x=1\r\ny=2\r\n");
}

TEST(ReplaceFileBytes, WritesEveryByteAsItIs) {
    const test::TempFolder folder;
    const std::string bytes("\x89PNG\r\n\x1A\n\0\n", 10);
    test::WriteBytes(folder / "a.png", "something much longer");
    EXPECT_TRUE(ReplaceFileBytes(folder / "a.png", bytes));
    EXPECT_EQ(test::BytesOf(folder / "a.png"), bytes);
    EXPECT_EQ(FilesIn(folder.Path()), 1);
}

TEST(ReplaceTextFile, ReplacesTheOldTextAndLeavesNothingBeside) {
    const test::TempFolder folder;
    test::WriteBytes(folder / "a.cfg", "something much longer");
    EXPECT_TRUE(ReplaceTextFile(folder / "a.cfg", "new"));
    EXPECT_EQ(test::BytesOf(folder / "a.cfg"), "new");
    EXPECT_EQ(FilesIn(folder.Path()), 1);
}

TEST(ReplaceTextFile, FailsWithoutTheFolder) {
    const test::TempFolder folder;
    EXPECT_FALSE(ReplaceTextFile(folder / "none" / "a.cfg", "new"));
}

TEST(ReplaceTextFile, FailsOnAProtectedFileAndKeepsIt) {
    const test::TempFolder folder;
    test::WriteBytes(folder / "a.cfg", "old");
    std::filesystem::permissions(folder / "a.cfg", std::filesystem::perms::owner_read);
    EXPECT_FALSE(ReplaceTextFile(folder / "a.cfg", "new"));
    EXPECT_EQ(test::BytesOf(folder / "a.cfg"), "old");
    EXPECT_EQ(FilesIn(folder.Path()), 1);
    std::filesystem::permissions(folder / "a.cfg", std::filesystem::perms::owner_all);
}

TEST(ReplaceTextFile, FailsOnAFolderOfThatName) {
    const test::TempFolder folder;
    std::filesystem::create_directory(folder / "a.cfg");
    EXPECT_FALSE(ReplaceTextFile(folder / "a.cfg", "new"));
    EXPECT_EQ(FilesIn(folder.Path()), 1);
}

TEST(ReplaceTextFile, WritesIntoAFolderWhoseNameIsNotLatin) {
    const test::TempFolder folder;
    const std::filesystem::path path = folder.Path() / u"\u0413\u0430\u0440\u0430\u0436" / u"\u8ECA.cfg";
    std::filesystem::create_directory(path.parent_path());
    EXPECT_TRUE(ReplaceTextFile(path, "x=1\n"));
    EXPECT_EQ(test::BytesOf(path), "x=1\r\n");
}

// On Windows a file that another program reads cannot be renamed over.
TEST(ReplaceTextFile, WaitsOutAReaderThatHoldsTheFileForAMoment) {
    const test::TempFolder folder;
    test::WriteBytes(folder / "a.cfg", "old");
    FileHandle reader = OpenFile(folder / "a.cfg", "rb");
    ASSERT_TRUE(reader);
    std::thread scanner([&reader] {
        std::this_thread::sleep_for(std::chrono::milliseconds(30));
        reader.reset();
    });
    EXPECT_TRUE(ReplaceTextFile(folder / "a.cfg", "new"));
    scanner.join();
    EXPECT_EQ(test::BytesOf(folder / "a.cfg"), "new");
    EXPECT_EQ(FilesIn(folder.Path()), 1);
}

TEST(ReplaceTextFile, RemovesWhatAKilledRunHasLeftAndNothingElse) {
    const test::TempFolder folder;
    test::WriteBytes(folder / "plotvane-0123456789abcdef.tmp", "half a te");
    test::WriteBytes(folder / "plotvane-0123456789abcde.tmp", "somebody else's");
    test::WriteBytes(folder / "plotvane-0123456789abcdef.tm", "somebody else's");
    test::WriteBytes(folder / "a.new", "somebody else's");
    EXPECT_TRUE(ReplaceTextFile(folder / "a.cfg", "new"));
    EXPECT_EQ(FilesIn(folder.Path()), 4);
    EXPECT_FALSE(std::filesystem::exists(folder / "plotvane-0123456789abcdef.tmp"));
}

TEST(ReplaceTextFile, LeavesAloneWhatAnotherProgramIsWriting) {
    const test::TempFolder folder;
    const auto others = folder / "plotvane-0123456789abcdef.tmp";
    FileHandle writing = CreateOwnFile(others);
    ASSERT_TRUE(writing);
    EXPECT_TRUE(ReplaceTextFile(folder / "a.cfg", "new"));
    EXPECT_TRUE(std::filesystem::exists(others));
    EXPECT_TRUE(RenameOwnFile(writing, others, folder / "b.cfg", IfTaken::Fail));
}

TEST(CreateTextFile, WritesOnlyWhatIsMissing) {
    const test::TempFolder folder;
    EXPECT_TRUE(CreateTextFile(folder / "a.cfg", "x=1\n"));
    EXPECT_EQ(test::BytesOf(folder / "a.cfg"), "x=1\r\n");
    EXPECT_FALSE(CreateTextFile(folder / "a.cfg", "x=2\n"));
    EXPECT_EQ(test::BytesOf(folder / "a.cfg"), "x=1\r\n");
    EXPECT_FALSE(CreateTextFile(folder / "none" / "a.cfg", "x=1\n"));
    EXPECT_EQ(FilesIn(folder.Path()), 1);
}

TEST(ReplaceTextFile, OfTwoThatWriteAtOnceLeavesOneWholeText) {
    const test::TempFolder folder;
    const std::string texts[] = {std::string(300, 'a'), std::string(9000, 'b')};
    std::atomic<int> successes{0};
    const auto write = [&](const std::string& text) {
        for (int i = 0; i < 50; ++i) {
            if (ReplaceTextFile(folder / "a.cfg", text)) ++successes;
        }
    };
    std::thread other([&] { write(texts[1]); });
    write(texts[0]);
    other.join();
    EXPECT_GT(successes, 0);
    const std::string text = test::BytesOf(folder / "a.cfg");
    EXPECT_TRUE(text == texts[0] || text == texts[1]) << text.size();
    EXPECT_EQ(FilesIn(folder.Path()), 1);
}

// Two copies of the program may share a folder, from two machines or one after the other.
TEST(ReplaceTextFile, AReaderMeanwhileSeesTheOldTextOrTheNewOne) {
    const test::TempFolder folder;
    const std::string texts[] = {std::string(300, 'a'), std::string(9000, 'b')};
    ASSERT_TRUE(ReplaceTextFile(folder / "a.cfg", texts[0]));
    std::atomic<bool> enough{false};
    std::thread writer([&] {
        for (int edition = 1; !enough; ++edition) {
            // A reader may hold the file for so long that Windows refuses; then the old text stays.
            static_cast<void>(ReplaceTextFile(folder / "a.cfg", texts[edition % 2]));
        }
    });
    int seen[] = {0, 0};
    bool sawAnotherText = false;
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while ((seen[0] < 10 || seen[1] < 10) && std::chrono::steady_clock::now() < deadline) {
        TextInput file = OpenWholeFile(folder / "a.cfg");
        if (!file.IsOpen()) continue;  // held for longer than a reader waits: no text at all
        std::string text;
        for (int c = file.Get(); c != TextInput::kEnd; c = file.Get()) text += static_cast<char>(c);
        const auto* const known = std::ranges::find(texts, text);
        if (known == std::end(texts))
            sawAnotherText = true;
        else
            ++seen[known - texts];
    }
    enough = true;
    writer.join();
    EXPECT_FALSE(sawAnotherText);
    EXPECT_GE(seen[0], 10);
    EXPECT_GE(seen[1], 10);
}

}  // namespace
}  // namespace plotvane
