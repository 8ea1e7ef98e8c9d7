// The stand-in host and the program together, as run.sh and people use them, with a pipe that is really
// inherited.
#include <gtest/gtest.h>

#include "tests/support/system/Prompt.h"
#include "tests/support/system/Records.h"
#include "tests/support/system/Session.h"

namespace plotvane::test {
namespace {

using namespace std::chrono_literals;

TEST(StandInHost, PlaysItsOwnDriveAndClosesTheProgram) {
    Session session;
    session.StartThroughStandIn(L"--rate 20 --speed 20 --seconds 3 --end close");
    for (int slot = 0; slot < 12; ++slot) {
        EXPECT_TRUE(Becomes([&] { return session.ValueText(slot).empty(); }, false)) << slot;
    }
    EXPECT_TRUE(Becomes([&] { return session.Main().Text(); }, kLiveTitle));
    EXPECT_TRUE(session.Process().EndsWithin(kDeadline)) << "it ends when the program does";
    EXPECT_EQ(session.Process().ExitCode(), 0u);
    EXPECT_FALSE(std::filesystem::exists(session.ExchangeFile()));
    EXPECT_TRUE(std::filesystem::exists(session.Scaling("Prefs.cfg")));
    EXPECT_EQ(BytesOf(session.Scaling(kScalingFile)).substr(0, 4), "3,\r\n");
}

TEST(StandInHost, PlaysARecordedDrive) {
    Session session;
    WriteBytes(session.Folder() / "drive.csv",
               "t,engine_rpm,speed_kmh,coolant_c\n0,900,0,80\n1,1000,10,81\n60,1000,10,81\n");
    session.StartThroughStandIn(L"--csv drive.csv");
    EXPECT_TRUE(session.Shows(0, L"1000 /min"));
    EXPECT_TRUE(session.Shows(1, L"10 km/h"));
    EXPECT_TRUE(session.Shows(2,
                              L"81 \u00B0"
                              L"C"));
    EXPECT_TRUE(session.Closes());
    EXPECT_TRUE(session.Process().EndsWithin(kDeadline));
}

TEST(StandInHost, SendsExactlyWhatAScriptSays) {
    Session session;
    WriteBytes(session.Folder() / "script.txt", "bytes FF FF\nrecord " + kFirstRecord + "\nwait 60000\n");
    session.StartThroughStandIn(L"--script script.txt");
    EXPECT_TRUE(session.Shows(0, L"780 /min"));
    EXPECT_TRUE(session.Shows(3, L"4.2 l/h"));
    EXPECT_TRUE(session.Closes());
    EXPECT_TRUE(session.Process().EndsWithin(kDeadline));
}

TEST(StandInHost, ItsFarewellWaitsUntilAStoppedProgramReadsAgain) {
    Session session;
    session.StartThroughStandIn(L"--seconds 1 --end both --pause 0.1");
    const auto saved = [&] { return BytesOf(session.Scaling(kScalingFile)); };
    ASSERT_TRUE(Becomes([&] { return saved().find("\r\n1,0,6000,") != std::string::npos; }, true)) << saved();
    ASSERT_TRUE(Stays([&] { return session.Process().Running(); }, true, 500ms));
    session.Main().PostClick(IDC_PAUSE);
    EXPECT_TRUE(session.Process().EndsWithin(kDeadline));
}

TEST(StandInHost, LeavesTheProgramRunningWhenItDies) {
    Session session;
    session.StartThroughStandIn(L"--fault die@1");
    ASSERT_TRUE(Becomes([&] { return session.ValueText(0).empty(); }, false));
    ASSERT_TRUE(session.Process().EndsWithin(kDeadline)) << "the host is gone";
    const RemoteWindow main = session.Main();
    EXPECT_TRUE(KeepsAnswering(main));
    EXPECT_TRUE(session.Closes());
}

class FaultyHost : public ::testing::TestWithParam<const wchar_t*> {};

TEST_P(FaultyHost, LeavesTheWindowAnsweringAndClosing) {
    Session session;
    session.StartThroughStandIn(L"--fault " + std::wstring(GetParam()) + L"@0.5");
    const RemoteWindow main = session.Main();
    EXPECT_TRUE(KeepsAnswering(main, 2500ms));
    EXPECT_TRUE(session.Closes());
    EXPECT_TRUE(session.Process().EndsWithin(kDeadline));
}

INSTANTIATE_TEST_SUITE_P(EachFault, FaultyHost,
                         ::testing::Values(L"stop-mid-block", L"malformed", L"silence", L"flood", L"garbage"),
                         [](const auto& info) {
                             std::string name;
                             for (const wchar_t letter : std::wstring_view(info.param)) {
                                 if (letter != L'-') name += static_cast<char>(letter);
                             }
                             return name;
                         });

}  // namespace
}  // namespace plotvane::test
