#include "logs/LogFileDialog.h"

#include <gtest/gtest.h>

#include "framework/FileDialog.h"
#include "tests/windows/support/FileDialogUser.h"

namespace plotvane::test {
namespace {

class LogFileDialogTest : public testing::Test {
protected:
    LogFileDialogTest() {
        std::filesystem::create_directory(m_current / "LOGS");
        WriteBytes(m_current / "LOGS/x.csv", "a log");
        WriteBytes(m_current / "x.csv", "not this one");
    }

    static std::optional<std::filesystem::path> Ask(const std::function<void(DialogUser&)>& script) {
        return WithFileDialog(
            L"Choose a log file", [] { return AskForLogFile(nullptr); }, script);
    }
    void ExpectTheCurrentFolderStays() const {
        EXPECT_TRUE(std::filesystem::equivalent(CurrentFolder(), m_current.Path())) << CurrentFolder();
    }

    const CurrentTempFolder m_current;
};

TEST_F(LogFileDialogTest, OffersLogsAndAllFiles) {
    Ask([](const DialogUser& user) {
        EXPECT_EQ(TypesIn(user), (std::vector<std::string>{"Diagnel logs (*.csv)", "All Files (*.*)"}));
        EXPECT_EQ(user.Ask(cmb1, CB_GETCURSEL), 0);
    });
}

TEST_F(LogFileDialogTest, StartsInTheFolderOfLogsAndKeepsTheCurrentOne) {
    const auto log = Ask([](const DialogUser& user) {
        ChooseFile(user, "x.csv");
        EXPECT_TRUE(user.Ends());
    });
    ASSERT_TRUE(log);
    EXPECT_TRUE(std::filesystem::equivalent(*log, m_current / "LOGS/x.csv")) << *log;
    ExpectTheCurrentFolderStays();
}

TEST_F(LogFileDialogTest, ThatIsCancelledChoosesNothing) {
    EXPECT_EQ(Ask([](const DialogUser&) {}), std::nullopt);
    ExpectTheCurrentFolderStays();
}

}  // namespace
}  // namespace plotvane::test
