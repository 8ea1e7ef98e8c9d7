// A disk that is really full: a small one of the test's own. The program writes everything there.
#include "tests/support/system/Records.h"
#include "tests/support/system/Session.h"
#include "tests/wine/support/LinuxShell.h"

namespace plotvane::test {
namespace {

constexpr const wchar_t* kNotSaved = L"Sorry, the scaling values couldn't be saved to disk";

// A disk of 64 KB, in memory, for as long as the object lives.
class SmallDisk {
public:
    SmallDisk() {
        std::filesystem::create_directory(Path());
        m_isThere = RunInShell(m_above.Path(), L"mount -t tmpfs -o size=64k none disk 2>/dev/null");
    }
    ~SmallDisk() {
        if (m_isThere) RunInShell(m_above.Path(), L"umount -l disk");
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    // Not every user may make a disk.
    bool IsThere() const { return m_isThere; }
    std::filesystem::path Path() const { return m_above / "disk"; }
    std::string Bytes(std::string_view name) const { return BytesOf(Path() / "Scaling" / name); }
    // Writes until not one more byte fits.
    void Fill() const {
        RunInShell(m_above.Path(), L"cat /dev/zero >disk/rest 2>/dev/null; test -s disk/rest");
        WriteBytes(Path() / "one-more", "x");
        ASSERT_EQ(BytesOf(Path() / "one-more"), "") << "there is room left";
    }
    void MakeRoom() const { std::filesystem::remove(Path() / "rest"); }

private:
    const TempFolder m_above;
    bool m_isThere = false;
};

class SmallDiskTest : public ::testing::Test {
protected:
    void SetUp() override {
        if (!m_disk.IsThere()) GTEST_SKIP() << "this user may not mount a disk";
    }
    void StartLive(Session& session) {
        session.StartWithHost();
        session.Host().SendRecord(kFirstRecord);
        ASSERT_TRUE(session.Shows(0, L"780 /min"));
    }

    const SmallDisk m_disk;
};

TEST_F(SmallDiskTest, ThatFillsUpDuringADriveKeepsTheOldFilesAndIsReported) {
    Session session(m_disk.Path());
    StartLive(session);
    ASSERT_FALSE(HasFatalFailure());
    const std::string ranges = m_disk.Bytes(kScalingFile);
    const std::string units = m_disk.Bytes("Defaults.cfg");
    ASSERT_NE(ranges, "");
    m_disk.Fill();
    session.Host().SendRecord(kSecondRecord);
    EXPECT_TRUE(session.Shows(0, L"1780 /min"));
    session.Host().StopSending();
    session.ConfirmMessage(kNotSaved, L"Error");
    EXPECT_TRUE(session.Closes());
    EXPECT_EQ(m_disk.Bytes(kScalingFile), ranges);
    EXPECT_EQ(m_disk.Bytes("Defaults.cfg"), units);
    EXPECT_FALSE(std::filesystem::exists(session.Scaling("Prefs.cfg"))) << "no part of a file is left";
}

TEST_F(SmallDiskTest, ThatHasRoomAgainTakesTheSettings) {
    Session session(m_disk.Path());
    StartLive(session);
    ASSERT_FALSE(HasFatalFailure());
    m_disk.Fill();
    session.Host().SendRecord(kSecondRecord);
    EXPECT_TRUE(session.Shows(0, L"1780 /min"));
    m_disk.MakeRoom();
    session.Host().StopSending();
    EXPECT_TRUE(Becomes([this] { return m_disk.Bytes(kScalingFile); }, ScalingBytes(3, kUnitRanges)));
    EXPECT_TRUE(session.Closes());
    EXPECT_TRUE(m_disk.Bytes("Prefs.cfg").ends_with("\r\nFuelHistoryDepth=1\r\n"));
}

// The host had written the exchange file before the disk was full.
TEST_F(SmallDiskTest, ThatIsFullFromTheStartPreventsNoDrive) {
    Session session(m_disk.Path());
    WriteBytes(session.ExchangeFile(), "5\n");
    m_disk.Fill();
    session.StartWithHostButNoExchangeFile();
    session.Host().SendRecord(kFirstRecord);
    EXPECT_TRUE(session.Shows(0, L"780 /min"));
    session.Host().StopSending();
    session.ConfirmMessage(kNotSaved, L"Error");
    EXPECT_TRUE(session.Closes());
    EXPECT_FALSE(std::filesystem::exists(session.Scaling("Defaults.cfg")));
    EXPECT_FALSE(std::filesystem::exists(session.Scaling(kScalingFile)));
}

}  // namespace
}  // namespace plotvane::test
