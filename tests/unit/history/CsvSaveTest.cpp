#include "history/CsvSave.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/TempFolder.h"
#include "tests/unit/history/Drive.h"

namespace plotvane {
namespace {

using State = CsvSave::State;

class CsvSaveTest : public testing::Test {
protected:
    CsvSaveTest() { test::Record(m_recording, {10.0, 20.0, 30.0}); }

    std::ptrdiff_t Files() const {
        return std::distance(std::filesystem::directory_iterator(m_folder.Path()), {});
    }

    static constexpr const char* kAll = "Time (s),Speed (/min)\r\n0.000,10\r\n1.000,20\r\n2.000,30\r\n";

    const test::TempFolder m_folder;
    const std::filesystem::path m_path = m_folder / "drive.csv";
    Recording m_recording;
};

TEST_F(CsvSaveTest, HasItsNameWhenAllIsInIt) {
    test::WriteBytes(m_path, "old");
    CsvSave save(m_recording, 0, 3, m_path);
    EXPECT_EQ(save.Save(2), State::Going);
    EXPECT_EQ(save.Percent(), 66);
    EXPECT_EQ(test::BytesOf(m_path), "old");
    EXPECT_EQ(save.Save(2), State::Done);
    EXPECT_EQ(test::BytesOf(m_path), kAll);
    EXPECT_EQ(Files(), 1);
}

TEST_F(CsvSaveTest, ThatIsGivenUpChangesNothing) {
    {
        CsvSave save(m_recording, 0, 3, m_path);
        EXPECT_EQ(save.Save(2), State::Going);
    }
    EXPECT_EQ(Files(), 0);
}

TEST_F(CsvSaveTest, SavesWhatWasRecordedWhenItBegan) {
    CsvSave save(m_recording, 0, 3, m_path);
    EXPECT_EQ(save.Save(1), State::Going);
    test::Record(m_recording, {99.0});
    EXPECT_EQ(save.Save(9), State::Done);
    EXPECT_EQ(test::BytesOf(m_path), kAll);
}

TEST_F(CsvSaveTest, EndsWhereSamplesHaveGone) {
    test::WriteBytes(m_path, "old");
    {
        CsvSave save(m_recording, 0, 3, m_path);
        EXPECT_EQ(save.Save(1), State::Going);
        m_recording.Begin("another");
        EXPECT_EQ(save.Save(9), State::Gone);
    }
    EXPECT_EQ(test::BytesOf(m_path), "old");
    EXPECT_EQ(Files(), 1);
}

TEST_F(CsvSaveTest, FailsWithoutItsFolder) {
    EXPECT_EQ(CsvSave(m_recording, 0, 3, m_folder / "none" / "drive.csv").Save(9), State::Failed);
}

TEST_F(CsvSaveTest, FailsWhereAFolderHasTheName) {
    std::filesystem::create_directory(m_path);
    EXPECT_EQ(CsvSave(m_recording, 0, 3, m_path).Save(9), State::Failed);
    EXPECT_EQ(Files(), 1);
}

TEST_F(CsvSaveTest, LeavesAProtectedFileAlone) {
    test::WriteBytes(m_path, "old");
    std::filesystem::permissions(m_path, std::filesystem::perms::owner_read);
    EXPECT_EQ(CsvSave(m_recording, 0, 3, m_path).Save(9), State::Failed);
    std::filesystem::permissions(m_path, std::filesystem::perms::owner_all);
    EXPECT_EQ(test::BytesOf(m_path), "old");
}

TEST_F(CsvSaveTest, RefusesTheNameOfADevice) {
    EXPECT_EQ(CsvSave(m_recording, 0, 3, m_folder / "nul.csv").Save(9), State::Failed);
    EXPECT_EQ(Files(), 0);
}

}  // namespace
}  // namespace plotvane
