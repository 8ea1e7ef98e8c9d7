#include <gtest/gtest.h>

#include "tests/support/ReplayFixture.h"

namespace plotvane {
namespace {

constexpr double kSoonMs = 20.0;  // the second row is due after 115

// A replay that its user holds and steps through. Its rows come 0.115, 0.5 and 3 seconds apart.
class StepRowTest : public test::ReplayFixture {
protected:
    void Step() { acquisition.control.StepRow(); }
    void HoldAfterTheFirstRow() {
        After(kSoonMs, [this] { dialog.Pause(); });
    }
    std::size_t Rows() const { return chart.samples.size(); }
};

TEST_F(StepRowTest, ShowsOneRowAtOnceAndHoldsAgain) {
    HoldAfterTheFirstRow();
    After(2 * kSoonMs, [this] {
        EXPECT_EQ(Rows(), 1u);
        Step();
    });
    After(2 * kSoonMs + 1.0, [this] { EXPECT_EQ(Rows(), 2u); });
    After(60'000.0, [this] {
        EXPECT_EQ(Rows(), 2u);
        EXPECT_FALSE(state.playing);
        EXPECT_EQ(dialog.look.pause, PauseImage::Resume);
        dialog.Stop();
    });
    Load();
    EXPECT_EQ(Rows(), 2u);
    EXPECT_EQ(chart.samples[1][0], 1240.0);
}

TEST_F(StepRowTest, ShowsTheTimeOfTheLog) {
    HoldAfterTheFirstRow();
    After(2 * kSoonMs, [this] { Step(); });
    After(3 * kSoonMs, [this] { Step(); });
    After(4 * kSoonMs, [this] {
        EXPECT_EQ(panel.elapsed, "0.50");  // of the row before the one that has just been read
        dialog.Stop();
    });
    Load();
}

TEST_F(StepRowTest, ShowsAsManyRowsAsItWasAskedFor) {
    HoldAfterTheFirstRow();
    After(2 * kSoonMs, [this] {
        Step();
        Step();
    });
    After(60'000.0, [this] {
        EXPECT_EQ(Rows(), 3u);
        dialog.Stop();
    });
    Load();
}

TEST_F(StepRowTest, LeavesNoGapUntilTheReplayGoesOn) {
    HoldAfterTheFirstRow();
    After(2 * kSoonMs, [this] { Step(); });
    After(3 * kSoonMs, [this] { EXPECT_TRUE(chart.gaps.empty()); });
    After(4 * kSoonMs, [this] { dialog.Pause(); });
    Load();
    EXPECT_EQ(chart.gaps.size(), 1u);
    EXPECT_EQ(Rows(), 3u);
}

TEST_F(StepRowTest, GoesOnAtThePaceOfTheLogAfterwards) {
    HoldAfterTheFirstRow();
    After(2 * kSoonMs, [this] { Step(); });
    double resumedMs = 0.0;
    After(3 * kSoonMs, [&] {
        resumedMs = pump.NowMs();
        dialog.Pause();
    });
    Load();
    // The second row stays for the half second that it has in the log, counted from when it came.
    EXPECT_NEAR(pump.NowMs() - resumedMs, 495.0 + 2995.0 - kSoonMs, 1.0);
}

TEST_F(StepRowTest, WithoutAutorunGoesOnFromTheFirstRow) {
    data.prefs.autorun = false;
    After(1000.0, [this] {
        EXPECT_EQ(Rows(), 1u);
        Step();
    });
    After(2000.0, [this] {
        EXPECT_EQ(Rows(), 2u);
        EXPECT_FALSE(state.playing);
        dialog.Pause();
    });
    Load();
    EXPECT_EQ(Rows(), 3u);
}

// The step ends the hold before the replay has come to where it would halt by itself.
TEST_F(StepRowTest, WithoutAutorunAHoldBeforeTheHaltStaysAHold) {
    data.prefs.autorun = false;
    HoldAfterTheFirstRow();
    After(2 * kSoonMs, [this] { Step(); });
    After(60'000.0, [this] {
        EXPECT_EQ(Rows(), 2u);
        EXPECT_FALSE(state.playing);
        dialog.Stop();
    });
    Load();
}

TEST_F(StepRowTest, AfterTheLastRowTheLogIsOver) {
    HoldAfterTheFirstRow();
    for (int step = 2; step < 6; ++step) After(step * kSoonMs, [this] { Step(); });
    Load();
    EXPECT_EQ(Rows(), 3u);
    EXPECT_TRUE(state.stopped);
    EXPECT_EQ(dialog.look.pause, PauseImage::StartOver);
    const double began = pump.NowMs();
    dialog.Pause();
    EXPECT_EQ(Rows(), 6u);
    EXPECT_NEAR(pump.NowMs() - began, 115.0 + 495.0 + 2995.0, 1.0) << "the steps are not kept";
}

TEST_F(StepRowTest, DoesNothingWhileTheReplayPlays) {
    After(kSoonMs, [this] { Step(); });
    const double began = pump.NowMs();
    Load();
    EXPECT_NEAR(pump.NowMs() - began, 115.0 + 495.0 + 2995.0, 1.0);
    EXPECT_EQ(Rows(), 3u);
}

TEST_F(StepRowTest, DoesNothingWhereNoReplayIsHeld) {
    Step();
    EXPECT_EQ(state.rowsToStep, 0);
    Load();
    Step();
    EXPECT_EQ(state.rowsToStep, 0);
}

TEST_F(StepRowTest, AResumeInTheSameMomentWins) {
    HoldAfterTheFirstRow();
    After(2 * kSoonMs, [this] {
        Step();
        dialog.Pause();
    });
    Load();
    EXPECT_EQ(Rows(), 3u);
    EXPECT_EQ(chart.gaps.size(), 1u);
}

}  // namespace
}  // namespace plotvane
