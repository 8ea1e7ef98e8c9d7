// A working folder on another machine's drive, which goes away while the program runs.
#include <array>

#include "tests/support/system/Records.h"
#include "tests/support/system/Session.h"
#include "tests/wine/support/LinuxShell.h"

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
    void SetUp() override { ASSERT_TRUE(m_share.IsThere()); }
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

}  // namespace
}  // namespace plotvane::test
