// A working folder on another machine's drive, and folders that disappear while the program runs.
#include <array>

#include "tests/support/system/LinuxShell.h"
#include "tests/support/system/Records.h"
#include "tests/support/system/Replay.h"

namespace plotvane::test {
namespace {

constexpr const wchar_t* kNotSaved = L"Sorry, the scaling values couldn't be saved to disk";
// The folder in which Wine keeps the links of its drives; empty without Wine.
std::filesystem::path FolderOfDrives() {
    std::array<wchar_t, 1024> prefix{};
    const DWORD length =
        ::GetEnvironmentVariableW(L"WINECONFIGDIR", prefix.data(), static_cast<DWORD>(prefix.size()));
    if (length == 0 || length >= prefix.size()) return {};
    std::wstring path(prefix.data(), length);
    if (path.starts_with(L"\\??\\")) path.erase(0, 4);
    return std::filesystem::path(path) / "dosdevices";
}

// A drive like the share of another machine, for as long as the object lives. A test can take it away and
// bring it back.
class SharedDrive {
public:
    SharedDrive() {
        if (!IsThere()) return;
        RunInShell(m_drives, L"rm -rf y: share away && mkdir -p share/work && ln -s share y:");
        EXPECT_TRUE(Becomes([this] { return std::filesystem::exists(WorkingFolder()); }, true));
    }
    ~SharedDrive() {
        if (IsThere()) RunInShell(m_drives, L"rm -rf y: share away");
    }
    SharedDrive(const SharedDrive&) = delete;
    SharedDrive& operator=(const SharedDrive&) = delete;

    bool IsThere() const { return !m_drives.empty(); }
    std::filesystem::path WorkingFolder() const { return L"Y:\\work"; }
    void GoAway() const {
        EXPECT_TRUE(RunInShell(m_drives, L"mv share away"));
        EXPECT_FALSE(std::filesystem::exists(WorkingFolder()));
    }
    void ComeBack() const {
        EXPECT_TRUE(RunInShell(m_drives, L"mv away share"));
        EXPECT_TRUE(std::filesystem::exists(WorkingFolder()));
    }
    std::string Bytes(const std::filesystem::path& name) const {
        return BytesOf(WorkingFolder() / "Scaling" / name);
    }

private:
    const std::filesystem::path m_drives = FolderOfDrives();
};

class Share : public ::testing::Test {
protected:
    void SetUp() override {
        if (!m_share.IsThere()) GTEST_SKIP() << "only Wine lets a test make a share";
    }
    void StartLive(Session& session) {
        session.StartWithHost();
        session.Host().SendRecord(kFirstRecord);
        ASSERT_TRUE(session.Shows(0, L"780 /min"));
    }

    const SharedDrive m_share;
};

TEST_F(Share, HoldsTheSettingsLikeAnyOtherFolder) {
    Session session(m_share.WorkingFolder());
    StartLive(session);
    ASSERT_FALSE(HasFatalFailure());
    session.Host().StopSending();
    EXPECT_TRUE(Becomes([this] { return m_share.Bytes(kScalingFile); }, ScalingBytes(3, kUnitRanges)));
    EXPECT_TRUE(session.Closes());
    EXPECT_NE(m_share.Bytes("Prefs.cfg"), "");
    EXPECT_NE(m_share.Bytes("Defaults.cfg"), "");
    EXPECT_FALSE(std::filesystem::exists(session.ExchangeFile()));
}

TEST_F(Share, ThatGoesAwayCostsNoValueAndIsReportedAtTheStop) {
    Session session(m_share.WorkingFolder());
    StartLive(session);
    ASSERT_FALSE(HasFatalFailure());
    const std::string ranges = m_share.Bytes(kScalingFile);
    ASSERT_NE(ranges, "");
    m_share.GoAway();
    session.Host().SendRecord(kSecondRecord);
    EXPECT_TRUE(session.Shows(0, L"1780 /min"));
    session.Host().StopSending();
    session.ConfirmMessage(kNotSaved, L"Error");
    EXPECT_TRUE(session.Closes());
    m_share.ComeBack();
    EXPECT_EQ(m_share.Bytes(kScalingFile), ranges);
}

TEST_F(Share, ThatIsAwayForAWhileIsWrittenAgain) {
    Session session(m_share.WorkingFolder());
    StartLive(session);
    ASSERT_FALSE(HasFatalFailure());
    m_share.GoAway();
    session.Host().SendRecord(kSecondRecord);
    EXPECT_TRUE(session.Shows(0, L"1780 /min"));
    m_share.ComeBack();
    session.Host().StopSending();
    EXPECT_TRUE(Becomes([this] { return m_share.Bytes(kScalingFile); }, ScalingBytes(3, kUnitRanges)));
    EXPECT_TRUE(session.Closes());
    EXPECT_NE(m_share.Bytes("Prefs.cfg"), "");
}

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
    std::filesystem::rename(log.parent_path(), session.Folder() / "elsewhere");
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
