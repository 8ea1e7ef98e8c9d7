#include "framework/FileDialog.h"

#include <gtest/gtest.h>

#include "tests/windows/support/FileDialogUser.h"

namespace plotvane::test {
namespace {

// The dialogs start in this folder, which is not the current one.
class FileDialogTest : public testing::Test {
protected:
    FileDialogTest() {
        m_question = {.title = "Take a table",
                      .types = {{"Tables", "*.csv"}, {"Everything", "*.*"}},
                      .folder = m_start.Path()};
        WriteBytes(m_start / "a.csv", "1,2");
    }

    std::optional<std::filesystem::path> AskWhich(const std::function<void(DialogUser&)>& script) {
        return WithFileDialog(
            L"Take a table", [this] { return AskWhichFile(nullptr, m_question); }, script);
    }
    std::optional<std::filesystem::path> AskWhere(const std::function<void(DialogUser&)>& script) {
        return WithFileDialog(
            L"Take a table", [this] { return AskWhereToSave(nullptr, m_question); }, script);
    }
    void ExpectTheCurrentFolderStays() const {
        EXPECT_EQ(std::filesystem::canonical(CurrentFolder()), std::filesystem::canonical(m_current.Path()));
    }

    const CurrentTempFolder m_current;
    const TempFolder m_start;
    FileQuestion m_question;
};

TEST_F(FileDialogTest, HasTheTitleAndOffersTheTypesTheFirstOfWhichIsChosen) {
    AskWhich([](const DialogUser& user) {
        EXPECT_EQ(TypesIn(user), (std::vector<std::string>{"Tables (*.csv)", "Everything (*.*)"}));
        EXPECT_EQ(user.Ask(cmb1, CB_GETCURSEL), 0);
    });
}

TEST_F(FileDialogTest, ThatIsCancelledAnswersNothing) {
    EXPECT_EQ(AskWhich([](const DialogUser&) {}), std::nullopt);
    EXPECT_EQ(AskWhere([](const DialogUser&) {}), std::nullopt);
    ExpectTheCurrentFolderStays();
}

TEST_F(FileDialogTest, LooksForANameInTheFolderInWhichItStarts) {
    const auto file = AskWhich([](const DialogUser& user) {
        ChooseFile(user, "a.csv");
        EXPECT_TRUE(user.Ends());
    });
    ASSERT_TRUE(file);
    EXPECT_TRUE(std::filesystem::equivalent(*file, m_start / "a.csv")) << *file;
    ExpectTheCurrentFolderStays();
}

TEST_F(FileDialogTest, KeepsTheCurrentFolderWhereverTheUserLooks) {
    const TempFolder other;
    WriteBytes(other / "b.csv", "3,4");
    const auto file = AskWhich([&](const DialogUser& user) {
        ChooseFile(user, other.Path().string());  // a folder: the dialog shows it
        EXPECT_TRUE(user.IsAtRest());
        ChooseFile(user, "b.csv");
        EXPECT_TRUE(user.Ends());
    });
    ASSERT_TRUE(file);
    EXPECT_TRUE(std::filesystem::equivalent(*file, other / "b.csv")) << *file;
    ExpectTheCurrentFolderStays();
}

TEST_F(FileDialogTest, SuggestsANameAndAddsTheExtension) {
    m_question.name = "drive";
    m_question.extension = "csv";
    const auto suggested = AskWhere([](const DialogUser& user) {
        EXPECT_EQ(user.TextOf(NameControlOf(user)), "drive");
        ChooseFile(user, "table");
        EXPECT_TRUE(user.Ends());
    });
    ASSERT_TRUE(suggested);
    EXPECT_EQ(suggested->filename(), "table.csv");
    EXPECT_TRUE(std::filesystem::equivalent(suggested->parent_path(), m_start.Path())) << *suggested;
    ExpectTheCurrentFolderStays();
}

}  // namespace
}  // namespace plotvane::test
