// While data flows the machine stays awake: not before, not in a hold, not after.
#include "tests/support/ReplayFixture.h"

namespace plotvane {
namespace {

using test::BlockOf;
using test::EngineRecord;

class AwakeWithTheHost : public test::AcquisitionFixture {
protected:
    AwakeWithTheHost() {
        state.hostRunning = true;
        test::WriteBytes(folder / "MB-PIPE.TXT", "5\n");
        for (int i = 0; i < 3; ++i) pipe.Write(BlockOf(EngineRecord()));
    }
    void Run() { acquisition.control.StartLive(); }
};

TEST_F(AwakeWithTheHost, UntilTheHostStops) {
    pipe.Write("\xFE");
    After(60.0, [&] { EXPECT_TRUE(dialog.isAwake); });
    EXPECT_FALSE(dialog.isAwake);
    Run();
    EXPECT_FALSE(dialog.isAwake);
}

TEST_F(AwakeWithTheHost, UntilTheHostIsGone) {
    pipe.closed = true;
    After(60.0, [&] { EXPECT_TRUE(dialog.isAwake); });
    Run();
    EXPECT_FALSE(dialog.isAwake);
}

TEST_F(AwakeWithTheHost, NotDuringAHold) {
    pipe.Write("\xFE");
    After(60.0, [&] { dialog.Pause(); });
    After(500.0, [&] {
        EXPECT_FALSE(dialog.isAwake);
        dialog.Pause();
        EXPECT_TRUE(dialog.isAwake);
    });
    Run();
    EXPECT_FALSE(dialog.isAwake);
}

TEST_F(AwakeWithTheHost, NotAfterARecordThatNobodyCanRead) {
    pipe.Write(BlockOf("038 906 019 FT,G001,X0,"));
    Run();
    ASSERT_FALSE(state.stopped);
    EXPECT_FALSE(dialog.isAwake);
    After(100.0, [&] {
        dialog.Pause();  // resumes what does not flow any more
        EXPECT_FALSE(dialog.isAwake);
    });
    dialog.Pause();
}

TEST_F(AwakeWithTheHost, AgainWhenTheUserStartsOver) {
    pipe.Write("\xFE");
    Run();
    pipe.Write(BlockOf(EngineRecord()));
    pipe.Write("\xFE");
    After(60.0, [&] { EXPECT_TRUE(dialog.isAwake); });
    dialog.Pause();
    EXPECT_FALSE(dialog.isAwake);
}

using AwakeInAReplay = test::ReplayFixture;

TEST_F(AwakeInAReplay, UntilTheLogIsOver) {
    dialog.whileAsked = [&] { EXPECT_FALSE(dialog.isAwake); };
    After(300.0, [&] { EXPECT_TRUE(dialog.isAwake); });
    Load();
    EXPECT_FALSE(dialog.isAwake);
}

TEST_F(AwakeInAReplay, NotWhileItHaltsAfterItsFirstRow) {
    data.prefs.autorun = false;
    After(5000.0, [&] {
        EXPECT_FALSE(dialog.isAwake);
        dialog.Pause();
    });
    Load();
    EXPECT_EQ(chart.samples.size(), 3u);
    EXPECT_FALSE(dialog.isAwake);
}

TEST_F(AwakeInAReplay, AlsoWhenItIsStoppedAndStartedOverInOneMoment) {
    After(300.0, [&] {
        dialog.Stop();
        EXPECT_FALSE(dialog.isAwake);
        dialog.Pause();
        EXPECT_TRUE(dialog.isAwake);
    });
    Load();
    EXPECT_FALSE(dialog.isAwake);
}

}  // namespace
}  // namespace plotvane
