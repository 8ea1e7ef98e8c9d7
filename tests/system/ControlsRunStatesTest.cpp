// What the run buttons offer while the host sends.
#include <gtest/gtest.h>

#include "tests/support/system/Records.h"
#include "tests/support/system/RunButtons.h"
#include "tests/support/system/Session.h"

namespace plotvane::test {
namespace {

class LiveStates : public ::testing::Test {
protected:
    void SetUp() override {
        session.StartWithHost();
        session.Host().SendRecord(kFirstRecord);
        main = session.Main();
        ASSERT_TRUE(session.Shows(3, L"4.2 l/h"));
        running = ButtonsOf(main);
    }
    ::testing::AssertionResult Become(const RunButtonsSeen& wanted) {
        return Becomes([this] { return ButtonsOf(main); }, wanted);
    }
    // Waits until Pause has another image. Nothing else about the buttons may change.
    ::testing::AssertionResult OnlyPauseLooksDifferent() {
        return Becomes(
            [this] {
                RunButtonsSeen seen = ButtonsOf(main);
                const bool changed = seen.pauseImage != running.pauseImage;
                seen.pauseImage = running.pauseImage;
                return changed && seen == running;
            },
            true);
    }

    Session session;
    RemoteWindow main;
    RunButtonsSeen running;
};

TEST_F(LiveStates, RunningItCanBeHeldButNotStopped) {
    EXPECT_TRUE(main.IsShown(IDC_PAUSE));
    EXPECT_FALSE(main.IsShown(IDC_STOP));
    EXPECT_FALSE(main.IsShown(IDC_LOAD_LOG));
    EXPECT_TRUE(running.pauseEnabled);
    EXPECT_FALSE(running.stopEnabled);
}

TEST_F(LiveStates, HeldAndReleased) {
    main.PostClick(IDC_PAUSE);
    EXPECT_TRUE(OnlyPauseLooksDifferent());
    main.PostClick(IDC_PAUSE);
    EXPECT_TRUE(Become(running));
    session.Host().SendRecord(kSecondRecord);
    EXPECT_TRUE(session.Shows(0, L"1780 /min"));
}

TEST_F(LiveStates, WhenTheHostStopsPauseStartsOver) {
    session.Host().StopSending();
    EXPECT_TRUE(OnlyPauseLooksDifferent());
    EXPECT_FALSE(main.IsShown(IDC_STOP));
    EXPECT_FALSE(main.IsShown(IDC_LOAD_LOG));
    main.PostClick(IDC_PAUSE);
    EXPECT_TRUE(Become(running));
    session.Host().SendRecord(kSecondRecord);
    EXPECT_TRUE(session.Shows(0, L"1780 /min"));
}

TEST_F(LiveStates, AHoldAfterStartingOverIsAHold) {
    session.Host().StopSending();
    EXPECT_TRUE(OnlyPauseLooksDifferent());
    main.PostClick(IDC_PAUSE);
    EXPECT_TRUE(Become(running));
    main.PostClick(IDC_PAUSE);
    EXPECT_TRUE(OnlyPauseLooksDifferent());
    session.Host().SendRecord(kSecondRecord);
    EXPECT_TRUE(Stays([this] { return session.ValueText(0); }, std::wstring(L"780 /min"),
                      std::chrono::milliseconds(300)));
    main.PostClick(IDC_PAUSE);
    EXPECT_TRUE(session.Shows(0, L"1780 /min"));
}

TEST_F(LiveStates, AMalformedRecordChangesNoButton) {
    session.Host().SendRecord(kMalformedRecord);
    ASSERT_TRUE(Becomes([this] { return session.Host().Unread(); }, 0u));
    EXPECT_EQ(ButtonsOf(main), running);
    EXPECT_TRUE(session.Closes());
}

}  // namespace
}  // namespace plotvane::test
