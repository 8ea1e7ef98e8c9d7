// Folders that disappear while the program runs.
#include "tests/support/system/Records.h"
#include "tests/support/system/Replay.h"

namespace plotvane::test {
namespace {

constexpr const wchar_t* kNotSaved = L"Sorry, the scaling values couldn't be saved to disk";

class VanishedFolder : public Replay {};

// As with a full disk, the program tells the user. The next start makes the folder again, as the first one
// did.
TEST_F(VanishedFolder, OfSettingsIsReportedAtTheStopAndMadeAgainByTheNextRun) {
    const auto log = WriteLog("x.csv", LogThatLingersAt(kDriving));
    Start();
    Load(log);
    ASSERT_TRUE(session.Shows(0, L"1240 /min"));
    std::filesystem::remove_all(session.Scaling(""));
    Press(IDC_STOP);
    ConfirmMessage(kNotSaved, L"Error");
    EXPECT_TRUE(session.Closes());
    Session next(session.Folder());
    next.StartWithHost();
    next.Host().SendRecord(kFirstRecord);
    EXPECT_TRUE(next.Shows(0, L"780 /min"));
    EXPECT_TRUE(next.Closes());
    EXPECT_TRUE(std::filesystem::exists(session.Scaling("Prefs.cfg")));
    EXPECT_EQ(BytesOf(session.Scaling(kScalingFile)), ScalingBytes(3, kUnitRanges));
}

// The program has the log open, so the replay goes on to its end even if the log's folder is removed.
TEST_F(VanishedFolder, OfTheLogDisturbsNoReplay) {
    const auto log = WriteLog("x.csv", LogThatLingersAt(kDriving));
    Start();
    Load(log);
    ASSERT_TRUE(session.Shows(0, L"1240 /min"));
    std::error_code refused;
    std::filesystem::rename(log.parent_path(), session.Folder() / "elsewhere", refused);
    if (refused) GTEST_SKIP() << "this system keeps a folder in which somebody has a file open";
    for (int press = 0; press < 3; ++press) main.Click(IDC_REPLAY_FASTER);
    EXPECT_TRUE(session.Shows(0, L"780 /min"));
    EXPECT_TRUE(Becomes([this] { return main.IsEnabled(IDC_STOP); }, false));
    Press(IDC_PAUSE);  // asks for the same log again, which is gone
    EXPECT_TRUE(main.Answers(kDeadline));
    EXPECT_TRUE(Becomes([this] { return main.IsEnabled(IDC_STOP); }, false));
    EXPECT_TRUE(session.Closes());
}

}  // namespace
}  // namespace plotvane::test
