#include "link/AcquisitionLoop.h"

#include "res/resource.h"
#include "tests/support/ReplayFixture.h"

namespace plotvane {
namespace {

using test::kInTheLongRow;
using test::kLongText;
using test::kReplayedLog;

class ReplayLoopTest : public test::ReplayFixture {};

TEST_F(ReplayLoopTest, ALogIsPlayedToItsEnd) {
    Load();
    ASSERT_EQ(chart.samples.size(), 3u);
    EXPECT_EQ(chart.samples[1][0], 1240.0);
    EXPECT_EQ(panel.values[0], "0 /min");
    EXPECT_EQ(panel.values[6], "320 mg/str");
    EXPECT_EQ(dialog.title, u"Plotvane   -   038-906-019-FT  -   x.csv");
    EXPECT_TRUE(dialog.messages.empty());
    EXPECT_TRUE(std::filesystem::exists(ScalingFile("038-906-019-FT.SCL")));
}

TEST_F(ReplayLoopTest, ALogLoadedAgainIsDrawnOnAFreshChart) {
    Load();
    const int redraws = chart.redraws;
    state.redrawRequest = false;
    Load();
    EXPECT_EQ(chart.redraws, redraws + 1);  // though no slot has changed its group
}

TEST_F(ReplayLoopTest, KeepsThePaceOfTheLog) {
    const double began = pump.NowMs();
    Load();
    // Before the rows: none, 0.12 s of column B, 0.5 s and 3.0 s of column A, each less 5 ms.
    EXPECT_NEAR(pump.NowMs() - began, 115.0 + 495.0 + 2995.0, 1.0);
}

TEST_F(ReplayLoopTest, KeepsThePaceWhenItIsPlayedAgain) {
    Load();
    const double began = pump.NowMs();
    dialog.Pause();
    EXPECT_NEAR(pump.NowMs() - began, 115.0 + 495.0 + 2995.0, 1.0);
}

TEST_F(ReplayLoopTest, ARowCutShortEndsTheReplayWithAMessage) {
    Choose("x.csv", std::string(kReplayedLog) + "3,4.00,800,90.0,1.0,1.00,4.12,800,240.5\n4,5.00,\n");
    Load();
    ASSERT_EQ(dialog.messages.size(), 1u);
    EXPECT_EQ(dialog.messages[0], std::make_pair(IDS_LOG_ROW_SHORT, IDS_UH_OH));
    EXPECT_EQ(chart.samples.size(), 3u);
    EXPECT_TRUE(state.stopped);
}

TEST_F(ReplayLoopTest, AJumpInTimeLeavesAGap) {
    Choose("x.csv", std::string(kReplayedLog) +
                        "3,10.00,800,90.0,1.0,1.00,10.12,800,240.5,238.0,12.5,,,,,\n"
                        "4,10.50,800,90.0,1.0,1.00,10.62,800,240.5,238.0,12.5,,,,,\n");
    Load();
    EXPECT_EQ(chart.gaps.size(), 1u);
    EXPECT_EQ(chart.samples.size(), 5u);
}

TEST_F(ReplayLoopTest, TheRangesOfTheHeaderAreTakenBeforeTheFirstRow) {
    Load();
    data.ranges.SetMin(1, 0, -7);
    acquisition.sample.values[0] = 99.0;
    pump.At(pump.NowMs(), [&] { EXPECT_EQ(acquisition.sample.values[0], -7.0); });
    state.reopenLog = false;
    Load();
}

TEST_F(ReplayLoopTest, AnObdLogIsFollowedByNineNumbersALineForAClassicOne) {
    Choose("o.csv",
           "Friday,20,November,2026,10:15:30\nOBD-II,generic data\n"
           "mark,time,PID- 012,time,PID- 013,time,PID- 005,time,PID- 000\n"
           "mark,time,Engine speed (/min),time,Vehicle speed (km/h),time,Coolant (\xB0"
           "C),time,none\n"
           "0,0.00,780,0.05,0,0.10,90,,\n");
    Load();
    EXPECT_TRUE(state.obdFile);
    EXPECT_EQ(panel.values[4], "PID 12");
    EXPECT_EQ(dialog.title, u"Plotvane   -   OBD.LBL  -   o.csv");
    Choose("x.csv", kReplayedLog);
    Load();
    EXPECT_FALSE(state.obdFile);
    const std::string saved = test::BytesOf(ScalingFile("038-906-019-FT.SCL"));
    EXPECT_NE(saved.find("\r\n2,0,100,0,100,0,100,0,100,\r\n"), std::string::npos);
}

TEST_F(ReplayLoopTest, AForeignLogThatCallsItselfObdIsAnEmptyReplay) {
    std::string log = "Friday,20,November,2026,10:15:30\nOBD\n";
    for (int i = 0; i < 10'000; ++i) log += "0,0.00,780,0.05,0,0.10,90\n";
    Choose("x.csv", log);
    Load();
    EXPECT_TRUE(chart.samples.empty());
    EXPECT_TRUE(dialog.messages.empty());
    EXPECT_TRUE(state.stopped);
}

TEST_F(ReplayLoopTest, UntilTheFirstRowTheModuleIsCalledAsInTheHeader) {
    After(0.0, [&] { EXPECT_EQ(acquisition.module.Key(), "038 906 019 FT"); });
    Load();
    EXPECT_EQ(acquisition.module.Key(), "038-906-019-FT.SCL");
}

TEST_F(ReplayLoopTest, StopBeforeTheFirstRowWritesNothing) {
    After(0.0, [&] { dialog.Stop(); });
    Load();
    EXPECT_TRUE(chart.samples.empty());
    EXPECT_FALSE(std::filesystem::exists(folder / "Scaling"));
}

TEST_F(ReplayLoopTest, MessagesAreDispatchedWhileALongRowIsRead) {
    Choose("x.csv", std::string(kReplayedLog) + "3," + kLongText + ",800,90.0,1.0,1.00,,,,,,,,,\n");
    Load();
    const int withLongRow = pump.dispatches;
    Choose("x.csv", std::string(kReplayedLog) + "3,,800,90.0,1.0,1.00,,,,,,,,,\n");
    state.reopenLog = false;
    Load();
    EXPECT_GE(withLongRow - (pump.dispatches - withLongRow), 10) << "at least one every 100 KB";
    EXPECT_EQ(chart.samples.size(), 8u);
}

TEST_F(ReplayLoopTest, AStopInsideALongRowEndsTheReplayThere) {
    Choose("x.csv", std::string(kReplayedLog) + kLongText + kLongText);
    int dispatchesAfterIt = 0;
    pump.onDispatch = [&] {
        if (chart.samples.size() < 3) return;
        if (++dispatchesAfterIt == kInTheLongRow) dialog.Stop();
    };
    Load();
    EXPECT_EQ(dispatchesAfterIt, kInTheLongRow) << "the reading must stop there";
    EXPECT_TRUE(state.stopped);
    EXPECT_TRUE(state.reopenLog);
    EXPECT_EQ(chart.samples.size(), 3u);
    EXPECT_TRUE(dialog.messages.empty());
}

}  // namespace
}  // namespace plotvane
