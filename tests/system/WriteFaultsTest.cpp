// Settings files that cannot be written: what the program says, and what is on the disk afterwards.
#include "base/WholeCopy.h"
#include "tests/support/system/MainDialog.h"
#include "tests/support/system/Records.h"
#include "tests/support/system/Session.h"
#include "tests/support/system/WriteFault.h"

namespace plotvane::test {
namespace {

using namespace std::chrono_literals;

constexpr const char* kPrefs = "Prefs.cfg";
constexpr const char* kDefaults = "Defaults.cfg";
constexpr const wchar_t* kNotSaved = L"Sorry, the scaling values couldn't be saved to disk";

// The user's own settings, with another window size than the program would write.
constexpr const char* kMyPrefs = "BackColor=400000\r\nAutorun=1\r\nSaveWindowSize=1\r\nWidth=300\r\n";
constexpr const char* kMyDefaults = "km/h,0,300,\r\nV,0,15,\r\n";

void ExpectNothingBeside(const Session& session) {
    for (const auto& entry : std::filesystem::directory_iterator(session.Scaling(""))) {
        const auto extension = entry.path().extension();
        EXPECT_TRUE(extension == ".cfg" || extension == ".SCL") << entry.path();
    }
}

class WriteFaults : public ::testing::TestWithParam<WriteFaultKind> {
protected:
    WriteFaults() {
        std::filesystem::create_directory(session.Scaling(""));
        WriteBytes(session.Scaling(kPrefs), kMyPrefs);
        WriteBytes(session.Scaling(kDefaults), kMyDefaults);
    }
    std::unique_ptr<WriteFault> BreakFile(const char* name) const {
        return Break(GetParam(), session.Scaling(name));
    }
    // Call it once the fault is over.
    void ExpectWhole(const char* name, const std::string& bytes) const {
        EXPECT_EQ(BytesOf(session.Scaling(name)), bytes);
        ExpectNothingBeside(session);
    }
    // Neither a message nor a dialog is open, and the program goes on.
    void ExpectSilence() const {
        EXPECT_TRUE(session.Main().Answers(5000ms));
        EXPECT_EQ(WindowsOf(session.Main().ProcessId()).size(), 1u);
    }

    Session session;
};

TEST_P(WriteFaults, AtTheCloseLeaveThePreferencesAsTheyWere) {
    session.Start();
    ASSERT_TRUE(session.Main().Exists());
    auto fault = BreakFile(kPrefs);
    EXPECT_TRUE(session.Closes());  // which a message would hold up
    fault.reset();
    ExpectWhole(kPrefs, kMyPrefs);
}

TEST_P(WriteFaults, OfSaveAndExitAreSilentAndLeaveBothFiles) {
    session.Start();
    session.Main().Post(WM_SYSCOMMAND, ID_SYSMENU_PREFERENCES);
    const RemoteWindow dialog = session.DialogWith(IDC_PREFS_SHOW_ZEROS);
    dialog.SetChecked(IDC_PREFS_SHOW_ZEROS, true);
    dialog.Click(IDC_PREFS_SHOW_ZEROS);
    dialog.Type(IDC_PREFS_ROW_MAX, L"280");
    {
        const auto prefs = BreakFile(kPrefs);
        const auto defaults = BreakFile(kDefaults);
        dialog.PostClick(IDOK);
        EXPECT_TRUE(Becomes([&] { return dialog.Exists(); }, false));
        ExpectSilence();
    }
    ExpectWhole(kPrefs, kMyPrefs);
    ExpectWhole(kDefaults, kMyDefaults);
    EXPECT_TRUE(session.Closes());
    // Now the program can write again. But it could not read the preferences back while the file was held, so
    // it does not write them.
    const bool areKnown = GetParam() != WriteFaultKind::Held;
    EXPECT_EQ(BytesOf(session.Scaling(kPrefs)) != kMyPrefs, areKnown);
}

TEST_P(WriteFaults, OfTheRangesAtAStopAreReported) {
    const std::string mine = ScalingBytes(7, "500,5000,0,100,0,100,0,30,");
    WriteBytes(session.Scaling(kScalingFile), mine);
    session.StartWithHost();
    session.Host().SendRecord(kFirstRecord);
    ASSERT_TRUE(session.Shows(3, L"4.2 l/h"));
    {
        const auto fault = BreakFile(kScalingFile);
        session.Host().StopSending();
        session.ConfirmMessage(kNotSaved, L"Error");
        ExpectSilence();
    }
    ExpectWhole(kScalingFile, mine);

    // The fault is over, so the next stop saves the ranges.
    session.Main().PostClick(IDC_PAUSE);
    session.Host().SendRecord(kSecondRecord);
    ASSERT_TRUE(session.Shows(3, L"5.2 l/h"));
    session.Host().StopSending();
    EXPECT_TRUE(Becomes([&] { return BytesOf(session.Scaling(kScalingFile)); },
                        ScalingBytes(7, "500,5000,0,100,0,300,0,30,")));
    ExpectSilence();
    EXPECT_TRUE(session.Closes());
}

TEST_P(WriteFaults, OfTheRangesAtTheCloseAreReportedAndThePreferencesStillSaved) {
    session.StartWithHost();
    session.Host().SendRecord(kFirstRecord);
    ASSERT_TRUE(session.Shows(3, L"4.2 l/h"));
    const std::string before = BytesOf(session.Scaling(kScalingFile));
    auto fault = BreakFile(kScalingFile);
    session.Main().Close();
    session.ConfirmMessage(kNotSaved, L"Error");
    EXPECT_TRUE(session.Process().EndsWithin(kDeadline));
    fault.reset();
    ExpectWhole(kScalingFile, before);
    EXPECT_NE(BytesOf(session.Scaling(kPrefs)), kMyPrefs);
    EXPECT_FALSE(std::filesystem::exists(session.ExchangeFile()));
}

// The program then runs with the defaults, not with the user's settings.
TEST(UnreadPrefs, OfAFileThatIsHeldAtTheStartAreNotWrittenOver) {
    Session session;
    std::filesystem::create_directory(session.Scaling(""));
    WriteBytes(session.Scaling(kPrefs), kMyPrefs);
    auto fault = Break(WriteFaultKind::Held, session.Scaling(kPrefs));
    session.Start();
    ASSERT_TRUE(session.Main().Exists());
    fault.reset();
    EXPECT_TRUE(session.Closes());
    EXPECT_EQ(BytesOf(session.Scaling(kPrefs)), kMyPrefs);
}

INSTANTIATE_TEST_SUITE_P(Each, WriteFaults,
                         ::testing::Values(WriteFaultKind::Held, WriteFaultKind::HeldForReaders,
                                           WriteFaultKind::HeldForDeleting, WriteFaultKind::FullDisk),
                         [](const auto& info) { return NameOf(info.param); });

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
    void Hold() { m_fault = Break(WriteFaultKind::Held, session.Scaling(kDefaults)); }
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
    Hold();
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
        Hold();
        LeaveDialogBy(button);
        EXPECT_EQ(Defaults(), kMyDefaults) << button;
    }
    EXPECT_TRUE(session.Closes());
    EXPECT_EQ(Defaults(), kMyDefaults);
}

// Opens, but every read fails.
constexpr const char* kUnreadableDevice = "/proc/self/mem";

TEST(UnreadPrefs, OfAFileThatCannotBeReadAreNotWrittenOver) {
    Session session;
    std::filesystem::create_directory(session.Scaling(""));
    const LinuxLink link(session.Scaling(kPrefs), kUnreadableDevice);
    session.Start();
    ASSERT_TRUE(session.Main().Exists());
    EXPECT_TRUE(session.Closes());
    std::ifstream stillUnreadable(session.Scaling(kPrefs), std::ios::binary);
    EXPECT_TRUE(stillUnreadable.is_open());
    EXPECT_EQ(stillUnreadable.get(), std::ifstream::traits_type::eof());
    ExpectNothingBeside(session);
}

TEST(LinkedPrefs, AreWrittenWhereTheLinkLeads) {
    Session session;
    std::filesystem::create_directory(session.Scaling(""));
    WriteBytes(session.Folder() / "mine.txt", kMyPrefs);
    const LinuxLink link(session.Scaling(kPrefs), "../mine.txt");
    session.Start();
    ASSERT_TRUE(session.Main().Exists());
    EXPECT_TRUE(session.Closes());
    const std::string written = BytesOf(session.Folder() / "mine.txt");
    EXPECT_TRUE(written.starts_with("BackColor=400000\r\nGridColor=ffffff\r\n")) << written;
    WriteBytes(session.Folder() / "mine.txt", "through the link");
    EXPECT_EQ(BytesOf(session.Scaling(kPrefs)), "through the link");
    ExpectNothingBeside(session);
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

// Files that the program makes when they are missing.
class FirstWriteFaults : public ::testing::Test {
protected:
    FirstWriteFaults() { std::filesystem::create_directory(session.Scaling("")); }

    // The unit's range from the built-in table is in force: km/h is the third field.
    void ExpectTheDriveIsPlotted() {
        ASSERT_TRUE(session.Shows(3, L"4.2 l/h"));
        EXPECT_EQ(WindowsOf(session.Main().ProcessId()).size(), 1u);
        session.Main().Click(IDC_SCALE_NEXT);
        session.Main().Click(IDC_SCALE_NEXT);
        EXPECT_EQ(session.Main().Text(IDC_SCALE_MAX), L"250");
    }

    Session session;
};

TEST_F(FirstWriteFaults, OfTheDefaultsOnAFullDiskAreSilent) {
    session.StartWithHost();
    ASSERT_TRUE(session.Main().Exists());
    auto fault = Break(WriteFaultKind::FullDisk, session.Scaling(kDefaults));
    session.Host().SendRecord(kFirstRecord);
    ExpectTheDriveIsPlotted();
    EXPECT_FALSE(std::filesystem::exists(session.Scaling(kDefaults)));
    session.Main().Close();
    session.ConfirmMessage(kNotSaved, L"Error");  // the ranges found no room either
    EXPECT_TRUE(session.Process().EndsWithin(kDeadline));
    fault.reset();
    EXPECT_TRUE(std::filesystem::is_empty(session.Scaling("")));
}

TEST_F(FirstWriteFaults, OfTheDefaultsInTheirFoldersPlaceAreSilent) {
    std::filesystem::create_directory(session.Scaling(kDefaults));
    session.StartWithHost();
    session.Host().SendRecord(kFirstRecord);
    ExpectTheDriveIsPlotted();
    EXPECT_TRUE(session.Closes());
    EXPECT_TRUE(std::filesystem::is_empty(session.Scaling(kDefaults)));
}

TEST_F(FirstWriteFaults, OfTheRangesAreReportedAtTheStopOnly) {
    session.StartWithHost();
    ASSERT_TRUE(session.Main().Exists());
    const auto fault = Break(WriteFaultKind::FullDisk, session.Scaling(kScalingFile));
    session.Host().SendRecord(kFirstRecord);
    ExpectTheDriveIsPlotted();
    EXPECT_FALSE(std::filesystem::exists(session.Scaling(kScalingFile)));
    session.Host().StopSending();
    session.ConfirmMessage(kNotSaved, L"Error");
    EXPECT_FALSE(std::filesystem::exists(session.Scaling(kScalingFile)));
    EXPECT_TRUE(session.Closes());
}

TEST_F(FirstWriteFaults, OfThePreferencesAreSilent) {
    session.Start();
    ASSERT_TRUE(session.Main().Exists());
    auto fault = Break(WriteFaultKind::FullDisk, session.Scaling(kPrefs));
    EXPECT_TRUE(session.Closes());
    fault.reset();
    EXPECT_TRUE(std::filesystem::is_empty(session.Scaling("")));
}

}  // namespace
}  // namespace plotvane::test
