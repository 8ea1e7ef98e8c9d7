// Settings files that cannot be written: what the program says, and what is on the disk afterwards. Each test
// program that can bring such faults about has these tests.
#include "tests/support/system/MainDialog.h"
#include "tests/support/system/MySettings.h"
#include "tests/support/system/Records.h"
#include "tests/support/system/WriteFault.h"

namespace plotvane::test {
namespace {

using namespace std::chrono_literals;

class WriteFaults : public ::testing::TestWithParam<WriteFaultKind> {
protected:
    WriteFaults() {
        std::filesystem::create_directory(session.Scaling(""));
        WriteBytes(session.Scaling(kPrefs), kMyPrefs);
        WriteBytes(session.Scaling(kDefaults), kMyDefaults);
    }
    std::unique_ptr<WriteFault> BreakFile(const char* name) const {
        return GetParam().breakFile(session.Scaling(name));
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
    EXPECT_EQ(BytesOf(session.Scaling(kPrefs)) != kMyPrefs, GetParam().isReadable);
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

INSTANTIATE_TEST_SUITE_P(Each, WriteFaults, ::testing::ValuesIn(WriteFaultKinds()),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace plotvane::test
