// Files that the program cannot make, because the disk is full.
#include "tests/support/system/MainDialog.h"
#include "tests/support/system/MySettings.h"
#include "tests/support/system/Records.h"
#include "tests/wine/support/FullDisk.h"

namespace plotvane::test {
namespace {

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
    auto fault = FillDiskFor(session.Scaling(kDefaults));
    session.Host().SendRecord(kFirstRecord);
    ExpectTheDriveIsPlotted();
    EXPECT_FALSE(std::filesystem::exists(session.Scaling(kDefaults)));
    session.Main().Close();
    session.ConfirmMessage(kNotSaved, L"Error");  // the ranges found no room either
    EXPECT_TRUE(session.Process().EndsWithin(kDeadline));
    fault.reset();
    EXPECT_TRUE(std::filesystem::is_empty(session.Scaling("")));
}

TEST_F(FirstWriteFaults, OfTheRangesAreReportedAtTheStopOnly) {
    session.StartWithHost();
    ASSERT_TRUE(session.Main().Exists());
    const auto fault = FillDiskFor(session.Scaling(kScalingFile));
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
    auto fault = FillDiskFor(session.Scaling(kPrefs));
    EXPECT_TRUE(session.Closes());
    fault.reset();
    EXPECT_TRUE(std::filesystem::is_empty(session.Scaling("")));
}

}  // namespace
}  // namespace plotvane::test
