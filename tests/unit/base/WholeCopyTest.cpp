#include "base/WholeCopy.h"

#include <gtest/gtest.h>

#include "base/AtomicFile.h"
#include "base/FileOperations.h"
#include "base/OwnFile.h"
#include "tests/support/TempFolder.h"

namespace plotvane {
namespace {

// A run was killed while it wrote this file, and the copy is still beside it.
class WholeCopyTest : public testing::Test {
protected:
    WholeCopyTest() {
        test::WriteBytes(m_file,
                         "new te"
                         "ld text");
    }

    void LeaveCopy(std::string_view text) { test::WriteBytes(m_copy, std::string(text) + MarkOf(text)); }
    std::string ReadWhole() {
        TextInput input = OpenWholeFile(m_file);
        std::string text = input.IsOpen() ? "" : "(not open)";
        for (int c = input.Get(); c != TextInput::kEnd; c = input.Get()) text += static_cast<char>(c);
        return text;
    }

    test::TempFolder m_folder;
    const std::filesystem::path m_file = m_folder / "Prefs.cfg";
    const std::filesystem::path m_copy = m_folder / "Prefs.cf~";
};

TEST_F(WholeCopyTest, HasANameNoLongerThanTheFiles) {
    EXPECT_EQ(WholeCopyOf(m_file), m_copy);
    EXPECT_EQ(WholeCopyOf("OBD.SCL"), "OBD.SC~");
}

TEST_F(WholeCopyTest, IsReadAndTheFileFinished) {
    LeaveCopy("new text\r\n");
    EXPECT_EQ(ReadWhole(), "new text\n");
    EXPECT_EQ(test::BytesOf(m_file), "new text\r\n");
    EXPECT_EQ(KindOf(m_copy), FileKind::Missing);
}

TEST_F(WholeCopyTest, MayBeLongerThanTheFileOrEmpty) {
    const std::string text(100000, 'n');
    LeaveCopy(text);
    EXPECT_EQ(ReadWhole(), text);
    EXPECT_EQ(test::BytesOf(m_file), text);
    LeaveCopy("");
    EXPECT_EQ(ReadWhole(), "");
    EXPECT_EQ(test::BytesOf(m_file), "");
}

TEST_F(WholeCopyTest, OfAFileThatItsUserHasRemovedDoesNotBringItBack) {
    LeaveCopy("new text\r\n");
    RemoveFile(m_file);
    EXPECT_EQ(ReadWhole(), "(not open)");
    EXPECT_EQ(KindOf(m_file), FileKind::Missing);
    EXPECT_TRUE(CreateTextFile(m_file, "first\n"));
    EXPECT_EQ(ReadWhole(), "first\n");
}

TEST_F(WholeCopyTest, GoesWithTheNextReplacement) {
    LeaveCopy("new text\r\n");
    EXPECT_TRUE(ReplaceTextFile(m_file, "newer\n"));
    EXPECT_EQ(KindOf(m_copy), FileKind::Missing);
    EXPECT_EQ(ReadWhole(), "newer\n");
}

TEST_F(WholeCopyTest, ThatAnotherProgramIsStillWritingMakesTheFileUnreadable) {
    const FileHandle writing = CreateOwnFile(m_copy);
    ASSERT_TRUE(writing);
    EXPECT_EQ(ReadWhole(), "(not open)");
    EXPECT_EQ(test::BytesOf(m_file), "new teld text");
}

// A file of this name may be somebody else's.
class ForeignCopy : public WholeCopyTest, public testing::WithParamInterface<std::string> {};

TEST_P(ForeignCopy, IsNeitherReadNorTouched) {
    test::WriteBytes(m_copy, GetParam());
    EXPECT_EQ(ReadWhole(), "new teld text");
    EXPECT_TRUE(ReplaceTextFile(m_file, "newer\n"));
    EXPECT_EQ(ReadWhole(), "newer\n");
    EXPECT_EQ(test::BytesOf(m_copy), GetParam());
}

std::string Marked(std::string_view text) {
    return std::string(text) + MarkOf(text);
}
INSTANTIATE_TEST_SUITE_P(
    Of, ForeignCopy,
    testing::Values("", "somebody's notes", "\x1A", "text\x1A", "text\x1Awhole 4 0\r\n",
                    Marked("text").substr(0, Marked("text").size() - 1),  // cut by a byte
                    Marked("text") + "x", "T" + Marked("text").substr(1), MarkOf("other").insert(0, "text"),
                    Marked(std::string((1u << 20) + 1, 'x'))));

}  // namespace
}  // namespace plotvane
