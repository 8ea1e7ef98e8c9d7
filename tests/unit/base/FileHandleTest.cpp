#include "base/FileHandle.h"

#include <gtest/gtest.h>

#include "tests/support/TempFolder.h"

namespace plotvane {
namespace {

class FileHandleTest : public testing::Test {
protected:
    test::TempFolder m_folder;
    const std::filesystem::path m_path = m_folder / "M\xC3\xBCller.txt";
};

TEST_F(FileHandleTest, OpensAFileThatIsThere) {
    EXPECT_FALSE(OpenFile(m_path, "rb"));
    test::WriteBytes(m_path, "a");
    EXPECT_TRUE(OpenFile(m_path, "rb"));
    EXPECT_TRUE(TryToOpenFile(m_path, "rb"));
}

TEST_F(FileHandleTest, OpensNoFolder) {
    EXPECT_FALSE(OpenFile(m_folder.Path(), "rb"));
    EXPECT_FALSE(TryToOpenFile(m_folder.Path(), "rb"));
}

TEST_F(FileHandleTest, AFlushedFileHoldsWhatWasWrittenBeforeItIsClosed) {
    const FileHandle file = OpenFile(m_path, "wb");
    ASSERT_TRUE(file);
    std::fputs("text", file.get());
    EXPECT_TRUE(FlushToDisk(file.get()));
    EXPECT_EQ(test::BytesOf(m_path), "text");
}

TEST_F(FileHandleTest, CuttingDropsWhatFollows) {
    FileHandle file = OpenFile(m_path, "wb");
    ASSERT_TRUE(file);
    std::fputs("text", file.get());
    EXPECT_TRUE(CutFile(file.get(), 2));
    file.reset();
    EXPECT_EQ(test::BytesOf(m_path), "te");
}

TEST_F(FileHandleTest, AFileThatIsOnlyReadIsNotCut) {
    test::WriteBytes(m_path, "text");
    FileHandle file = OpenFile(m_path, "rb");
    ASSERT_TRUE(file);
    EXPECT_FALSE(CutFile(file.get(), 2));
    file.reset();
    EXPECT_EQ(test::BytesOf(m_path), "text");
}

}  // namespace
}  // namespace plotvane
