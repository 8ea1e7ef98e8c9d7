#include "plot/binding/ReplayPacing.h"

#include "tests/support/PlotFixture.h"

namespace plotvane {
namespace {

class ReplayPacingTest : public test::PlotFixture {
protected:
    ReplayPacingTest() {
        state.stopped = false;
        pacing.Restart();
    }

    // How long the step before the next row waits, in milliseconds.
    double Step(double a, double b = 0.0, double c = 0.0) {
        const double before = pump.NowMs();
        halted = pacing.ReplayStep({a, b, c}, LoopRun(state));
        return pump.NowMs() - before;
    }

    // Does what the Pause button does.
    void Hold() {
        state.playing = false;
        pacing.WaitWhilePaused(LoopRun(state));
    }

    bool halted = false;
    ReplayPacing pacing{sample, views, pump};
};

TEST_F(ReplayPacingTest, KeepsThePaceOfTheStamps) {
    EXPECT_EQ(Step(0.0), 0.0);
    EXPECT_EQ(panel.elapsed, "0.00");
    EXPECT_EQ(Step(0.0), 245.0);
    EXPECT_EQ(Step(0.5), 495.0);
    EXPECT_EQ(panel.elapsed, "0.50");
    EXPECT_EQ(Step(3.5), 2995.0);
    EXPECT_TRUE(chart.gaps.empty());
    sample.values[0] = 7.0;
    EXPECT_EQ(Step(10.0), 995.0);
    ASSERT_EQ(chart.gaps.size(), 1u);
    EXPECT_EQ(chart.gaps[0][0], 7.0);
    EXPECT_EQ(panel.elapsed, "10.00");
}

TEST_F(ReplayPacingTest, AtEightTimesTheSpeedTheStepsShrink) {
    state.replayPeriodMs = 125;
    const double began = pump.NowMs();
    for (const double stamp : {0.0, 0.0, 0.5, 3.5, 10.0}) Step(stamp);
    EXPECT_NEAR(pump.NowMs() - began, 573.75, 1.0);  // the fake clock has whole milliseconds
}

TEST_F(ReplayPacingTest, TakesTheFirstStampThatIsNotZeroAndItsOwnPredecessor) {
    Step(0.0);
    EXPECT_EQ(Step(0.0, 0.12, 0.2), 115.0);  // 0.12 after 0
    EXPECT_EQ(panel.elapsed, "0.12");
    EXPECT_EQ(Step(0.0, 0.62, 0.7), 495.0);
    EXPECT_EQ(Step(1.0, 1.12, 1.2), 995.0);  // column A after its own 0
}

TEST_F(ReplayPacingTest, AStepOfFiveSecondsIsWaitedForAndALongerOneIsAGap) {
    Step(0.0);
    EXPECT_EQ(Step(5.0), 4995.0);
    EXPECT_TRUE(chart.gaps.empty());
    EXPECT_EQ(Step(10.125), 995.0);
    EXPECT_EQ(chart.gaps.size(), 1u);
}

TEST_F(ReplayPacingTest, AJumpBackIsNotWaitedFor) {
    Step(0.0);
    Step(100.0);
    EXPECT_EQ(Step(1.0), 0.0);
    EXPECT_EQ(Step(-5.0), 0.0);
    EXPECT_EQ(Step(-4.0), 995.0);
}

TEST_F(ReplayPacingTest, ReplayCatchesUpWithFiftyMillisecondsAndNoMore) {
    Step(0.0);
    Step(1.0);
    pump.Pass(995.0 + 50.0);
    EXPECT_EQ(Step(2.0), 0.0);
    EXPECT_EQ(Step(3.0), 945.0);
    pump.Pass(995.0 + 51.0);
    EXPECT_EQ(Step(4.0), 0.0);
    EXPECT_EQ(Step(5.0), 995.0);
}

TEST_F(ReplayPacingTest, ALateStepDoesNotDelayTheNextOnes) {
    Step(0.0);
    Step(1.0);
    pump.Pass(30.0);  // the row took its time
    EXPECT_EQ(Step(2.0), 965.0);
    pump.Pass(5000.0);  // a hold
    EXPECT_EQ(Step(3.0), 0.0);
    EXPECT_EQ(Step(4.0), 995.0);
}

TEST_F(ReplayPacingTest, ANewSpeedTakesEffectDuringTheWait) {
    Step(0.0);
    pump.At(pump.NowMs() + 100.0, [this] { state.replayPeriodMs = 500; });
    EXPECT_EQ(Step(1.0), 495.0);
}

TEST_F(ReplayPacingTest, StopEndsTheWait) {
    Step(0.0);
    pump.At(pump.NowMs() + 100.0, [this] { state.stopped = true; });
    EXPECT_EQ(Step(4.9), 100.0);
}

TEST_F(ReplayPacingTest, SleepsUntilAStepIsDue) {
    Step(0.0);
    const int before = pump.dispatches;
    EXPECT_EQ(Step(0.5), 495.0);
    EXPECT_EQ(pump.dispatches - before, 1);
}

TEST_F(ReplayPacingTest, AStepThatIsDueAlreadyStillDispatches) {
    Step(0.0);
    const int before = pump.dispatches;
    EXPECT_EQ(Step(0.0), 245.0);
    EXPECT_EQ(Step(-5.0), 0.0);
    EXPECT_EQ(pump.dispatches - before, 2);
}

TEST_F(ReplayPacingTest, AStepThatIsCutShortShowsNothing) {
    Step(0.0);
    pump.At(pump.NowMs() + 100.0, [this] {
        state.stopped = true;
        panel.ShowElapsed("0.00");  // as the Stop button does
    });
    Step(4.9);
    EXPECT_EQ(panel.elapsed, "0.00");
}

TEST_F(ReplayPacingTest, AStepThatIsCutShortLeavesTheNextReplayAlone) {
    prefs.autorun = false;
    Step(0.0);
    pump.At(pump.NowMs() + 100.0, [this] {
        ++state.generation;  // stopped and started again, all in one go
        pacing.Restart();
    });
    Step(4.9);
    EXPECT_FALSE(halted);
    EXPECT_EQ(Step(0.0), 0.0);
    EXPECT_FALSE(halted);
    EXPECT_EQ(Step(0.3), 295.0);  // 0.3 s after 0, not after what the older replay had reached
    EXPECT_TRUE(halted);
}

TEST_F(ReplayPacingTest, WithoutAutorunItHaltsOnceOneRowIsDrawn) {
    prefs.autorun = false;
    Step(0.0);
    EXPECT_FALSE(halted);
    Step(0.0);
    EXPECT_TRUE(halted);
    Step(0.5);
    EXPECT_FALSE(halted);
    pacing.Restart();
    Step(0.0);
    Step(0.0);
    EXPECT_TRUE(halted);
}

TEST_F(ReplayPacingTest, WithAutorunItNeverHalts) {
    for (int i = 0; i < 5; ++i) {
        Step(0.0);
        EXPECT_FALSE(halted);
    }
}

TEST_F(ReplayPacingTest, ARestartBeginsAtZeroAgain) {
    Step(0.0);
    Step(100.0);
    pacing.Restart();
    chart.gaps.clear();
    EXPECT_EQ(Step(0.0), 0.0);
    EXPECT_EQ(panel.elapsed, "0.00");
    EXPECT_EQ(Step(0.5), 495.0);
    EXPECT_TRUE(chart.gaps.empty());
}

TEST_F(ReplayPacingTest, AResumedHoldLeavesAGap) {
    pump.At(pump.NowMs() + 300.0, [this] {
        EXPECT_TRUE(state.halted);
        state.playing = true;
    });
    sample.values[3] = 4.0;
    const double resumedMs = pump.NowMs() + 300.0;
    Hold();
    EXPECT_EQ(pump.NowMs(), resumedMs);
    EXPECT_FALSE(state.halted);
    ASSERT_EQ(chart.gaps.size(), 1u);
    EXPECT_EQ(chart.gaps[0][3], 4.0);
}

TEST_F(ReplayPacingTest, AHoldThatStopEndsLeavesNoGap) {
    pump.At(pump.NowMs() + 300.0, [this] { state.stopped = true; });
    Hold();
    EXPECT_TRUE(chart.gaps.empty());
    EXPECT_FALSE(state.gapPending);
}

TEST_F(ReplayPacingTest, HoweverOftenItIsResumedAndHeldOneHoldStandsOnTheStack) {
    double returnedMs = 0.0;
    const double pressedMs = pump.NowMs() + 100.0;
    pump.At(pressedMs, [&] {
        for (int press = 0; press < 1000; ++press) {
            state.playing = true;
            Hold();
        }
        returnedMs = pump.NowMs();
        EXPECT_TRUE(state.halted);
    });
    pump.At(pressedMs + 100.0, [this] { state.playing = true; });
    Hold();
    EXPECT_EQ(returnedMs, pressedMs);
    EXPECT_EQ(pump.NowMs(), pressedMs + 100.0);
    EXPECT_FALSE(state.halted);
    EXPECT_EQ(chart.gaps.size(), 1u);
}

// Stopped, started and paused again before the first hold could return.
TEST_F(ReplayPacingTest, AHoldThatIsOnTheStackWaitsForANewerRunToo) {
    pump.At(pump.NowMs() + 100.0, [this] {
        ++state.generation;
        Hold();
    });
    const double resumedMs = pump.NowMs() + 300.0;
    pump.At(resumedMs, [this] { state.playing = true; });
    Hold();
    EXPECT_EQ(pump.NowMs(), resumedMs);
    EXPECT_EQ(chart.gaps.size(), 1u) << "one, and it belongs to the newer run";
}

TEST_F(ReplayPacingTest, AHoldInsideAHoldLeavesOneGap) {
    // Resumed and paused again before the first hold could return.
    pump.At(pump.NowMs() + 100.0, [this] {
        state.playing = true;
        Hold();
    });
    pump.At(pump.NowMs() + 200.0, [this] { state.playing = true; });
    Hold();
    EXPECT_EQ(chart.gaps.size(), 1u);
}

}  // namespace
}  // namespace plotvane
