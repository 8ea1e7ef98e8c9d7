// Settings files that other programs have open, or that are not what the program left.
#include "base/WholeCopy.h"
#include "tests/support/system/MainDialog.h"
#include "tests/support/system/MySettings.h"
#include "tests/support/system/Records.h"
#include "tests/support/system/WriteFault.h"

namespace plotvane::test {
namespace {

// The program then runs with the defaults, not with the user's settings.
TEST(UnreadPrefs, OfAFileThatIsHeldAtTheStartAreNotWrittenOver) {
    Session session;
    std::filesystem::create_directory(session.Scaling(""));
    WriteBytes(session.Scaling(kPrefs), kMyPrefs);
    auto fault = Hold(session.Scaling(kPrefs));
    session.Start();
    ASSERT_TRUE(session.Main().Exists());
    fault.reset();
    EXPECT_TRUE(session.Closes());
    EXPECT_EQ(BytesOf(session.Scaling(kPrefs)), kMyPrefs);
}

// Programs that let others write a file, but not rename over it: an editor, a script, a synchronising client.
class OpenFiles : public ::testing::Test {
protected:
    static constexpr DWORD kReadAndWrite = GENERIC_READ | GENERIC_WRITE;
    static constexpr DWORD kSharing = FILE_SHARE_READ | FILE_SHARE_WRITE;

    OpenFiles() {
        std::filesystem::create_directory(session.Scaling(""));
        WriteBytes(session.Scaling(kPrefs), kMyPrefs);
        WriteBytes(session.Scaling(kDefaults), kMyDefaults);
    }
    HeldFile Open(const char* name) const { return {session.Scaling(name), kReadAndWrite, kSharing}; }

    Session session;
};

TEST_F(OpenFiles, TakeThePreferencesAtTheClose) {
    session.Start();
    ASSERT_TRUE(session.Main().Exists());
    {
        const HeldFile prefs = Open(kPrefs);
        EXPECT_TRUE(session.Closes());
    }
    EXPECT_TRUE(BytesOf(session.Scaling(kPrefs)).starts_with("BackColor=400000\r\nGridColor=ffffff\r\n"));
    ExpectNothingBeside(session);
}

TEST_F(OpenFiles, TakeWhatSaveAndExitWrites) {
    session.Start();
    session.Main().Post(WM_SYSCOMMAND, ID_SYSMENU_PREFERENCES);
    const RemoteWindow dialog = session.DialogWith(IDC_PREFS_SHOW_ZEROS);
    dialog.Type(IDC_PREFS_ROW_MAX, L"280");
    {
        const HeldFile prefs = Open(kPrefs);
        const HeldFile defaults = Open(kDefaults);
        dialog.PostClick(IDOK);
        EXPECT_TRUE(Becomes([&] { return dialog.Exists(); }, false));
    }
    EXPECT_EQ(BytesOf(session.Scaling(kDefaults)), "km/h,0,280,\r\nV,0,15,\r\n");
    EXPECT_TRUE(BytesOf(session.Scaling(kPrefs)).ends_with("FuelHistoryDepth=1\r\n"));
    ExpectNothingBeside(session);
    EXPECT_TRUE(session.Closes());
}

TEST_F(OpenFiles, TakeTheRangesAtAStopSilently) {
    WriteBytes(session.Scaling(kScalingFile), ScalingBytes(7, "500,5000,0,100,0,100,0,30,"));
    session.StartWithHost();
    session.Host().SendRecord(kFirstRecord);
    ASSERT_TRUE(session.Shows(3, L"4.2 l/h"));
    const HeldFile ranges = Open(kScalingFile);
    session.Host().StopSending();
    EXPECT_TRUE(Becomes([&] { return BytesOf(session.Scaling(kScalingFile)); },
                        ScalingBytes(7, "500,5000,0,100,0,300,0,30,")));
    EXPECT_EQ(WindowsOf(session.Main().ProcessId()).size(), 1u);
    EXPECT_TRUE(session.Closes());
    ExpectNothingBeside(session);
}

// The program then uses the built-in table, and the user's list stays in the file.
class UnreadDefaults : public ::testing::Test {
protected:
    UnreadDefaults() {
        std::filesystem::create_directory(session.Scaling(""));
        WriteBytes(session.Scaling(kDefaults), kMyDefaults);
    }
    void HoldDefaults() { m_fault = Hold(session.Scaling(kDefaults)); }
    void LetGo() { m_fault.reset(); }
    void LeaveDialogBy(int button) {
        session.Main().Post(WM_SYSCOMMAND, ID_SYSMENU_PREFERENCES);
        const RemoteWindow dialog = session.DialogWith(IDC_PREFS_SHOW_ZEROS);
        EXPECT_EQ(dialog.Text(IDC_PREFS_ROW_UNIT), L"/min");
        LetGo();
        dialog.PostClick(button);
        EXPECT_TRUE(Becomes([&] { return dialog.Exists(); }, false));
    }
    std::string Defaults() const { return BytesOf(session.Scaling(kDefaults)); }

    Session session;

private:
    std::unique_ptr<WriteFault> m_fault;
};

TEST_F(UnreadDefaults, OfAFileThatIsHeldAtTheFirstRecordAreNotWrittenOver) {
    session.StartWithHost();
    ASSERT_TRUE(session.Main().Exists());
    HoldDefaults();
    session.Host().SendRecord(kFirstRecord);
    ASSERT_TRUE(session.Shows(3, L"4.2 l/h"));
    session.Main().Click(IDC_SCALE_NEXT);
    session.Main().Click(IDC_SCALE_NEXT);
    EXPECT_EQ(session.Main().Text(IDC_SCALE_MAX), L"250");  // not the user's 300
    LetGo();
    EXPECT_TRUE(session.Closes());
    EXPECT_EQ(Defaults(), kMyDefaults);
}

TEST_F(UnreadDefaults, OfAFileThatIsHeldWhilePreferencesOpenAreNotWrittenOver) {
    session.Start();
    ASSERT_TRUE(session.Main().Exists());
    for (const int button : {IDCANCEL, IDOK}) {
        HoldDefaults();
        LeaveDialogBy(button);
        EXPECT_EQ(Defaults(), kMyDefaults) << button;
    }
    EXPECT_TRUE(session.Closes());
    EXPECT_EQ(Defaults(), kMyDefaults);
}

// A run was killed while it wrote over a file that another program had open.
TEST(TornPrefs, AreReadFromTheCopyBesideThem) {
    const std::string whole = "BackColor=400000\r\nWidth=300\r\nHeight=200\r\n";
    Session session;
    std::filesystem::create_directory(session.Scaling(""));
    WriteBytes(session.Scaling(kPrefs), "BackColor=40\r\nWidth=200\r\n");
    WriteBytes(session.Scaling("Prefs.cf~"), whole + MarkOf(whole));
    session.Start();
    EXPECT_EQ(session.Main().Size().cx, 0x300);
    EXPECT_EQ(BytesOf(session.Scaling(kPrefs)), whole);
    ExpectNothingBeside(session);
    EXPECT_TRUE(session.Closes());
}

// Something else lies where the program would make a file for itself.
TEST(DefaultsThatAreAFolder, AreNotWrittenAndNotSpokenOf) {
    Session session;
    std::filesystem::create_directories(session.Scaling(kDefaults));
    session.StartWithHost();
    session.Host().SendRecord(kFirstRecord);
    ASSERT_TRUE(session.Shows(3, L"4.2 l/h"));
    EXPECT_EQ(WindowsOf(session.Main().ProcessId()).size(), 1u);
    session.Main().Click(IDC_SCALE_NEXT);
    session.Main().Click(IDC_SCALE_NEXT);
    EXPECT_EQ(session.Main().Text(IDC_SCALE_MAX), L"250");  // of km/h in the built-in table
    EXPECT_TRUE(session.Closes());
    EXPECT_TRUE(std::filesystem::is_empty(session.Scaling(kDefaults)));
}

}  // namespace
}  // namespace plotvane::test
