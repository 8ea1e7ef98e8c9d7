#include "link/RunControl.h"

#include "res/resource.h"
#include "tests/support/ReplayFixture.h"

namespace plotvane {
namespace {

using test::kReplayedLog;

class RunControlTest : public test::ReplayFixture {};

TEST_F(RunControlTest, AfterTheEndTheSameLogCanBeReplayed) {
    Load();
    EXPECT_TRUE(state.stopped);
    EXPECT_TRUE(state.playing);
    EXPECT_FALSE(state.logMode);
    EXPECT_TRUE(state.endOfLog);
    EXPECT_TRUE(state.reopenLog);
    EXPECT_TRUE(state.redrawRequest);
    EXPECT_FALSE(dialog.look.stopEnabled);
    EXPECT_FALSE(dialog.look.stopActive);
    EXPECT_TRUE(dialog.look.pauseEnabled);
    EXPECT_EQ(dialog.look.pause, PauseImage::StartOver);
    EXPECT_FALSE(dialog.look.loadActive);
    EXPECT_EQ(panel.elapsed, "0.00");

    dialog.Pause();
    EXPECT_EQ(chart.samples.size(), 6u);
    EXPECT_EQ(dialog.asked, 1);
}

TEST_F(RunControlTest, AtTheEndTheButtonsAreSetHoweverTheyWereLeft) {
    After(100.0, [&] { dialog.look = {}; });
    Load();
    EXPECT_EQ(dialog.look, LookOf(state));
    EXPECT_TRUE(dialog.look.pauseEnabled);
}

TEST_F(RunControlTest, WhileItPlaysTheButtonsOfferStopAndPause) {
    After(100.0, [&] {
        EXPECT_FALSE(state.stopped);
        EXPECT_TRUE(state.logMode);
        EXPECT_FALSE(state.redrawRequest);
        EXPECT_TRUE(dialog.look.stopEnabled);
        EXPECT_TRUE(dialog.look.stopActive);
        EXPECT_TRUE(dialog.look.pauseEnabled);
        EXPECT_TRUE(dialog.look.loadActive);
        EXPECT_EQ(dialog.look.pause, PauseImage::Pause);
        Load();
        EXPECT_EQ(dialog.asked, 1);
    });
    Load();
}

TEST_F(RunControlTest, AReplayThatIsPlayedAgainCanBeHeld) {
    Load();
    After(50.0, [&] { dialog.Pause(); });
    After(400.0, [&] {
        EXPECT_FALSE(state.playing);
        EXPECT_FALSE(state.reopenLog);
        EXPECT_EQ(dialog.look.pause, PauseImage::Resume);
        dialog.Pause();
    });
    dialog.Pause();
    EXPECT_EQ(chart.samples.size(), 6u);
    EXPECT_EQ(chart.gaps.size(), 1u);
}

TEST_F(RunControlTest, PauseAndResumeLeaveAGap) {
    After(50.0, [&] { dialog.Pause(); });
    After(400.0, [&] {
        EXPECT_FALSE(state.playing);
        EXPECT_EQ(dialog.look.pause, PauseImage::Resume);
        dialog.Pause();
        EXPECT_EQ(dialog.look.pause, PauseImage::Pause);
    });
    Load();
    EXPECT_EQ(chart.gaps.size(), 1u);
    EXPECT_EQ(chart.samples.size(), 3u);
}

TEST_F(RunControlTest, StopInsideAHoldEndsTheReplayWithoutAGap) {
    After(50.0, [&] { dialog.Pause(); });
    After(400.0, [&] { dialog.Stop(); });
    Load();
    EXPECT_TRUE(chart.gaps.empty());
    EXPECT_FALSE(state.playing);
    EXPECT_TRUE(state.reopenLog);
    EXPECT_EQ(chart.samples.size(), 1u);

    dialog.Pause();
    EXPECT_TRUE(state.playing);
    EXPECT_EQ(chart.samples.size(), 4u);
}

TEST_F(RunControlTest, StopAndPauseInOnePumpReplayFromTheFirstRow) {
    After(300.0, [&] {
        dialog.Stop();
        dialog.Pause();
    });
    Load();
    EXPECT_EQ(chart.samples.size(), 2u + 3u);
    EXPECT_EQ(chart.samples[2][0], 780.0);
}

TEST_F(RunControlTest, WithoutAutorunItHaltsAfterTheFirstRow) {
    data.prefs.autorun = false;
    After(5000.0, [&] {
        EXPECT_EQ(chart.samples.size(), 1u);
        EXPECT_EQ(panel.values[0], "780 /min");
        EXPECT_EQ(dialog.look.pause, PauseImage::Resume);
        dialog.Pause();
    });
    Load();
    EXPECT_EQ(chart.samples.size(), 3u);
    EXPECT_EQ(chart.gaps.size(), 1u);
}

TEST_F(RunControlTest, StopInTheHaltWithoutAutorunPlaysNoOtherRow) {
    data.prefs.autorun = false;
    After(5000.0, [&] { dialog.Stop(); });
    Load();
    EXPECT_EQ(chart.samples.size(), 1u);
    EXPECT_TRUE(state.reopenLog);
}

TEST_F(RunControlTest, ACancelledDialogDisablesPause) {
    Load();
    dialog.choice.reset();
    Load();
    EXPECT_FALSE(dialog.look.pauseEnabled);
    EXPECT_FALSE(state.reopenLog);
    EXPECT_TRUE(state.stopped);
    EXPECT_TRUE(dialog.messages.empty());
}

TEST_F(RunControlTest, LoadTakesTheOfferToReplayBackBeforeItAsksForALog) {
    Load();
    ASSERT_TRUE(state.reopenLog);
    dialog.look.pauseEnabled = false;  // whatever the run before left
    dialog.look.stopActive = true;
    dialog.whileAsked = [&] {
        EXPECT_TRUE(state.halted);
        EXPECT_FALSE(state.reopenLog);
        EXPECT_EQ(dialog.look.pause, PauseImage::Idle);
        EXPECT_TRUE(dialog.look.pauseEnabled);
        EXPECT_FALSE(dialog.look.stopActive);
    };
    Load();
    EXPECT_EQ(dialog.asked, 2);
}

TEST_F(RunControlTest, AfterACancelledDialogTheNextLogCanBePaused) {
    const auto log = dialog.choice;
    dialog.choice.reset();
    Load();
    ASSERT_FALSE(dialog.look.pauseEnabled);
    dialog.choice = log;
    After(100.0, [&] { EXPECT_TRUE(dialog.look.pauseEnabled); });
    Load();
    EXPECT_EQ(chart.samples.size(), 3u);
}

TEST_F(RunControlTest, AFileThatWentAwayCanBeTriedAgain) {
    Load();
    std::filesystem::rename(folder / "x.csv", folder / "y.csv");
    dialog.Pause();
    ASSERT_EQ(dialog.messages.size(), 1u);
    EXPECT_EQ(dialog.messages[0], std::make_pair(IDS_CANNOT_OPEN_FILE, IDS_ERROR));
    EXPECT_FALSE(state.playing);
    EXPECT_TRUE(state.reopenLog);
    EXPECT_TRUE(state.stopped);
    EXPECT_TRUE(dialog.look.pauseEnabled);
    EXPECT_EQ(dialog.look.pause, PauseImage::StartOver);
    dialog.Pause();  // fails again: there is still nothing to hold
    EXPECT_EQ(dialog.messages.size(), 2u);
    EXPECT_EQ(dialog.look.pause, PauseImage::StartOver);

    std::filesystem::rename(folder / "y.csv", folder / "x.csv");
    dialog.Pause();
    EXPECT_TRUE(state.playing);
    EXPECT_EQ(chart.samples.size(), 6u);
}

TEST_F(RunControlTest, AResumedHaltGoesOnWithTheSameRunAndReadsItsRowWithoutAnotherWait) {
    data.prefs.autorun = false;
    bool isResumed = false;
    std::size_t samplesAtNextWait = 0;
    pump.onDispatch = [&] {
        if (isResumed && samplesAtNextWait == 0) samplesAtNextWait = chart.samples.size();
    };
    After(5000.0, [&] {
        isResumed = true;
        dialog.Pause();
    });
    Load();
    EXPECT_EQ(state.generation, 1u);
    EXPECT_EQ(samplesAtNextWait, 2u);
}

TEST_F(RunControlTest, AReplayThatIsStoppedInItsHaltHaltsAgainAfterItsFirstRow) {
    data.prefs.autorun = false;
    After(5000.0, [&] {
        dialog.Stop();
        dialog.Pause();
    });
    After(10'000.0, [&] {
        EXPECT_EQ(chart.samples.size(), 1u + 1u);
        EXPECT_EQ(dialog.look.pause, PauseImage::Resume);
        dialog.Pause();
    });
    Load();
    EXPECT_EQ(chart.samples.size(), 1u + 3u);
}

// The older replay shows a message that its log is damaged. When it then ends, it must not stop the newer
// replay.
TEST_F(RunControlTest, HowAnOlderRunHasEndedDoesNotCountForANewerOne) {
    Choose("x.csv", std::string(kReplayedLog) + "3,4.00,800,90.0\n");
    dialog.whileMessage = [&] {
        dialog.whileMessage = nullptr;
        Choose("x.csv", kReplayedLog);
        dialog.Stop();
        dialog.Pause();
    };
    Load();
    EXPECT_EQ(dialog.messages.size(), 1u);
    EXPECT_EQ(chart.samples.size(), 3u + 3u);
    EXPECT_TRUE(state.stopped);
}

}  // namespace
}  // namespace plotvane
