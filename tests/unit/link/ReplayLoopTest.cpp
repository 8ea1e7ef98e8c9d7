#include "link/RunControl.h"

#include "res/resource.h"
#include "tests/support/AcquisitionFixture.h"
#include "tests/support/OpenFile.h"

namespace plotvane {
namespace {

// Three rows of groups 1 and 3, half a second and three seconds apart.
constexpr const char* kLog =
    "Friday,20,November,2026,10:15:30\n"
    "038 906 019 FT,Engine control\n"
    "\n"
    ",Row A,'001,,,,Row B,'003,,,,Row C,none\n"
    ",,Speed,Coolant,Flow,Lambda,,Speed,Mass,Mass,Duty,,,,,\n"
    ",,actual,temp.,,bank 1,,actual,spec.,actual,EGR,,,,,\n"
    "mark,time, /min,\xB0"
    "C, l/h,,time, /min, mg/str, mg/str, %,time,,,,\n"
    "0,0.00,780,90.0,0.9,1.02,0.12,780,240.5,238.0,12.5,,,,,\n"
    "1,0.50,1240,90.0,4.2,0.98,0.62,1240,310.0,305.5,40.1,,,,,\n"
    "2,3.50,n/a,91.8,6.5,1.00,3.62,2110,322.5,320.0,38.0,,,,,\n";

class ReplayLoopTest : public test::AcquisitionFixture {
protected:
    ReplayLoopTest() { Choose("x.csv", kLog); }

    void Choose(const char* name, std::string_view text) {
        test::WriteBytes(folder / name, text);
        dialog.choice = folder / name;
    }
    void Load() { acquisition.control.LoadLog(); }
};

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

TEST_F(ReplayLoopTest, AfterTheEndTheSameLogCanBeReplayed) {
    Load();
    EXPECT_TRUE(state.stopped);
    EXPECT_TRUE(state.playing);
    EXPECT_FALSE(state.logMode);
    EXPECT_TRUE(state.endOfLog);
    EXPECT_TRUE(state.reopenLog);
    EXPECT_TRUE(state.redrawRequest);
    EXPECT_FALSE(dialog.stopEnabled);
    EXPECT_FALSE(dialog.stopActive);
    EXPECT_TRUE(dialog.pauseEnabled);
    EXPECT_EQ(dialog.pause, PauseImage::StartOver);
    EXPECT_TRUE(dialog.loadEnabled);
    EXPECT_FALSE(dialog.loadActive);
    EXPECT_EQ(panel.elapsed, "0.00");

    dialog.Pause();
    EXPECT_EQ(chart.samples.size(), 6u);
    EXPECT_EQ(dialog.asked, 1);
}

TEST_F(ReplayLoopTest, AtTheEndTheButtonsAreSetHoweverTheyWereLeft) {
    After(100.0, [&] {
        dialog.pauseEnabled = false;
        dialog.loadEnabled = false;
    });
    Load();
    EXPECT_TRUE(dialog.pauseEnabled);
    EXPECT_TRUE(dialog.loadEnabled);
}

TEST_F(ReplayLoopTest, ALogLoadedAgainIsDrawnOnAFreshChart) {
    Load();
    const int redraws = chart.redraws;
    state.redrawRequest = false;
    Load();
    EXPECT_EQ(chart.redraws, redraws + 1);  // though no slot has changed its group
}

TEST_F(ReplayLoopTest, WhileItPlaysTheButtonsOfferStopAndPause) {
    After(100.0, [&] {
        EXPECT_FALSE(state.stopped);
        EXPECT_TRUE(state.logMode);
        EXPECT_FALSE(state.redrawRequest);
        EXPECT_TRUE(dialog.stopEnabled);
        EXPECT_TRUE(dialog.stopActive);
        EXPECT_TRUE(dialog.pauseEnabled);
        EXPECT_TRUE(dialog.loadActive);
        EXPECT_EQ(dialog.pause, PauseImage::Pause);
        Load();
        EXPECT_EQ(dialog.asked, 1);
    });
    Load();
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

TEST_F(ReplayLoopTest, AReplayThatIsPlayedAgainCanBeHeld) {
    Load();
    After(50.0, [&] { dialog.Pause(); });
    After(400.0, [&] {
        EXPECT_FALSE(state.playing);
        EXPECT_FALSE(state.reopenLog);
        EXPECT_EQ(dialog.pause, PauseImage::Resume);
        dialog.Pause();
    });
    dialog.Pause();
    EXPECT_EQ(chart.samples.size(), 6u);
    EXPECT_EQ(chart.gaps.size(), 1u);
}

TEST_F(ReplayLoopTest, PauseAndResumeLeaveAGap) {
    After(50.0, [&] { dialog.Pause(); });
    After(400.0, [&] {
        EXPECT_FALSE(state.playing);
        EXPECT_EQ(dialog.pause, PauseImage::Resume);
        dialog.Pause();
        EXPECT_EQ(dialog.pause, PauseImage::Pause);
    });
    Load();
    EXPECT_EQ(chart.gaps.size(), 1u);
    EXPECT_EQ(chart.samples.size(), 3u);
}

TEST_F(ReplayLoopTest, StopInsideAHoldEndsTheReplayWithoutAGap) {
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

TEST_F(ReplayLoopTest, StopAndPauseInOnePumpReplayFromTheFirstRow) {
    After(300.0, [&] {
        dialog.Stop();
        dialog.Pause();
    });
    Load();
    EXPECT_EQ(chart.samples.size(), 2u + 3u);
    EXPECT_EQ(chart.samples[2][0], 780.0);
}

TEST_F(ReplayLoopTest, ALogIsOpenWhileItIsPlayedAndNoLonger) {
    bool wasHeld = false;
    After(300.0, [&] { wasHeld = test::IsHeldOpen(folder / "x.csv"); });
    Load();
    EXPECT_TRUE(wasHeld);
    EXPECT_FALSE(test::IsHeldOpen(folder / "x.csv"));
}

TEST_F(ReplayLoopTest, ALogIsClosedWhateverEndsItsReplay) {
    const std::vector<std::function<void()>> endings{[&] { dialog.Stop(); }, [&] { dialog.Close(); },
                                                     [&] {
                                                         dialog.Stop();
                                                         dialog.Pause();
                                                         dialog.Stop();
                                                     },
                                                     [&] {
                                                         dialog.Stop();
                                                         Load();
                                                         dialog.Stop();
                                                     },
                                                     [&] {  // the second replay goes on to its end
                                                         dialog.Stop();
                                                         dialog.Pause();
                                                     }};
    for (std::size_t ending = 0; ending < endings.size(); ++ending) {
        After(300.0, endings[ending]);
        Load();
        EXPECT_TRUE(state.stopped) << ending;
        EXPECT_FALSE(test::IsHeldOpen(folder / "x.csv")) << ending;
    }
}

TEST_F(ReplayLoopTest, ALogIsClosedBehindARecordThatIsMalformed) {
    Choose("x.csv",
           std::string(kLog) + "3,4.00," + std::string(101, '1') + ",90,1,1,4.12,800,240,238,12,,,,,\n4,\n");
    Load();
    EXPECT_FALSE(test::IsHeldOpen(folder / "x.csv"));
}

TEST_F(ReplayLoopTest, WithoutAutorunItHaltsAfterTheFirstRow) {
    data.prefs.autorun = false;
    After(5000.0, [&] {
        EXPECT_EQ(chart.samples.size(), 1u);
        EXPECT_EQ(panel.values[0], "780 /min");
        EXPECT_EQ(dialog.pause, PauseImage::Resume);
        dialog.Pause();
    });
    Load();
    EXPECT_EQ(chart.samples.size(), 3u);
    EXPECT_EQ(chart.gaps.size(), 1u);
}

TEST_F(ReplayLoopTest, StopInTheHaltWithoutAutorunPlaysNoOtherRow) {
    data.prefs.autorun = false;
    After(5000.0, [&] { dialog.Stop(); });
    Load();
    EXPECT_EQ(chart.samples.size(), 1u);
    EXPECT_TRUE(state.reopenLog);
}

TEST_F(ReplayLoopTest, ACancelledDialogDisablesPause) {
    Load();
    dialog.choice.reset();
    Load();
    EXPECT_FALSE(dialog.pauseEnabled);
    EXPECT_FALSE(state.reopenLog);
    EXPECT_TRUE(state.stopped);
    EXPECT_TRUE(dialog.messages.empty());
}

TEST_F(ReplayLoopTest, LoadTakesTheOfferToReplayBackBeforeItAsksForALog) {
    Load();
    ASSERT_TRUE(state.reopenLog);
    dialog.pauseEnabled = false;  // however the run before was left
    dialog.stopActive = true;
    dialog.whileAsked = [&] {
        EXPECT_TRUE(state.halted);
        EXPECT_FALSE(state.reopenLog);
        EXPECT_EQ(dialog.pause, PauseImage::Idle);
        EXPECT_TRUE(dialog.pauseEnabled);
        EXPECT_FALSE(dialog.stopActive);
    };
    Load();
    EXPECT_EQ(dialog.asked, 2);
}

TEST_F(ReplayLoopTest, AfterACancelledDialogTheNextLogCanBePaused) {
    const auto log = dialog.choice;
    dialog.choice.reset();
    Load();
    ASSERT_FALSE(dialog.pauseEnabled);
    dialog.choice = log;
    After(100.0, [&] { EXPECT_TRUE(dialog.pauseEnabled); });
    Load();
    EXPECT_EQ(chart.samples.size(), 3u);
}

TEST_F(ReplayLoopTest, SomethingElseThanALogIsRefused) {
    Choose("x.csv", "not,a,log\n");
    Load();
    ASSERT_EQ(dialog.messages.size(), 1u);
    EXPECT_EQ(dialog.messages[0], std::make_pair(IDS_NOT_A_LOG, IDS_DOH));
    EXPECT_FALSE(state.logMode);
    EXPECT_TRUE(chart.samples.empty());
}

TEST_F(ReplayLoopTest, OpeningTellsALogFromACancelledDialogAndFromSomethingElse) {
    ReplayPacing pacing(acquisition.plot, pump, data.prefs);
    RunWatch watch(pump, state);
    LogSource source(state, pacing, dialog, dialog, watch);
    EXPECT_EQ(source.OpenLogFile(), 1);
    Choose("x.csv", "not,a,log\n");
    EXPECT_EQ(source.OpenLogFile(), -1);
    std::filesystem::remove(folder / "x.csv");
    EXPECT_EQ(source.OpenLogFile(), -1);
    dialog.choice.reset();
    EXPECT_EQ(source.OpenLogFile(), 0);
}

TEST_F(ReplayLoopTest, AMissingFileIsSaidOnce) {
    std::filesystem::remove(folder / "x.csv");
    Load();
    ASSERT_EQ(dialog.messages.size(), 1u);
    EXPECT_EQ(dialog.messages[0], std::make_pair(IDS_CANNOT_OPEN_FILE, IDS_ERROR));
}

TEST_F(ReplayLoopTest, AFileThatWentAwayCanBeTriedAgain) {
    Load();
    std::filesystem::rename(folder / "x.csv", folder / "y.csv");
    dialog.Pause();
    ASSERT_EQ(dialog.messages.size(), 1u);
    EXPECT_EQ(dialog.messages[0], std::make_pair(IDS_CANNOT_OPEN_FILE, IDS_ERROR));
    EXPECT_FALSE(state.playing);
    EXPECT_TRUE(state.reopenLog);
    EXPECT_TRUE(state.stopped);
    EXPECT_TRUE(dialog.pauseEnabled);
    EXPECT_EQ(dialog.pause, PauseImage::StartOver);
    dialog.Pause();  // in vain again: there is still nothing to hold
    EXPECT_EQ(dialog.messages.size(), 2u);
    EXPECT_EQ(dialog.pause, PauseImage::StartOver);

    std::filesystem::rename(folder / "y.csv", folder / "x.csv");
    dialog.Pause();
    EXPECT_TRUE(state.playing);
    EXPECT_EQ(chart.samples.size(), 6u);
}

TEST_F(ReplayLoopTest, ARowCutShortEndsTheReplayWithAMessage) {
    Choose("x.csv", std::string(kLog) + "3,4.00,800,90.0,1.0,1.00,4.12,800,240.5\n4,5.00,\n");
    Load();
    ASSERT_EQ(dialog.messages.size(), 1u);
    EXPECT_EQ(dialog.messages[0], std::make_pair(IDS_LOG_ROW_SHORT, IDS_UH_OH));
    EXPECT_EQ(chart.samples.size(), 3u);
    EXPECT_TRUE(state.stopped);
}

TEST_F(ReplayLoopTest, AJumpInTimeLeavesAGap) {
    Choose("x.csv", std::string(kLog) +
                        "3,10.00,800,90.0,1.0,1.00,10.12,800,240.5,238.0,12.5,,,,,\n"
                        "4,10.50,800,90.0,1.0,1.00,10.62,800,240.5,238.0,12.5,,,,,\n");
    Load();
    EXPECT_EQ(chart.gaps.size(), 1u);
    EXPECT_EQ(chart.samples.size(), 5u);
}

TEST_F(ReplayLoopTest, TheRangesOfTheHeaderAreTakenBeforeTheFirstRow) {
    Load();
    data.ranges.SetMin(1, 0, -7);
    acquisition.plot.values[0] = 99.0;
    pump.At(pump.NowMs(), [&] { EXPECT_EQ(acquisition.plot.values[0], -7.0); });
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
    Choose("x.csv", kLog);
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
    EXPECT_TRUE(dialog.loadEnabled);
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

// A row, or a header, that is too long to be read in one go.
const std::string kLongText(1'000'000, 'x');

// Dispatches behind the third sample: fewer belong to the wait before the next row.
constexpr int kInTheLongRow = 10;

TEST_F(ReplayLoopTest, MessagesAreDispatchedWhileALongRowIsRead) {
    Choose("x.csv", std::string(kLog) + "3," + kLongText + ",800,90.0,1.0,1.00,,,,,,,,,\n");
    Load();
    const int withLongRow = pump.dispatches;
    Choose("x.csv", std::string(kLog) + "3,,800,90.0,1.0,1.00,,,,,,,,,\n");
    state.reopenLog = false;
    Load();
    EXPECT_GE(withLongRow - (pump.dispatches - withLongRow), 10) << "some every 100 KB";
    EXPECT_EQ(chart.samples.size(), 8u);
}

TEST_F(ReplayLoopTest, AStopInTheMidstOfALongRowEndsTheReplayThere) {
    Choose("x.csv", std::string(kLog) + kLongText + kLongText);
    int dispatchesBehindIt = 0;
    pump.onDispatch = [&] {
        if (chart.samples.size() < 3) return;
        if (++dispatchesBehindIt == kInTheLongRow) dialog.Stop();
    };
    Load();
    EXPECT_EQ(dispatchesBehindIt, kInTheLongRow) << "it is read no further";
    EXPECT_TRUE(state.stopped);
    EXPECT_TRUE(state.reopenLog);
    EXPECT_EQ(chart.samples.size(), 3u);
    EXPECT_TRUE(dialog.messages.empty());
}

// However the presses come: the row that is being read would take the other log's text for its own.
TEST_F(ReplayLoopTest, NoLogIsOpenedWhileARowIsRead) {
    Choose("x.csv", std::string(kLog) + kLongText + kLongText);
    int dispatchesBehindIt = 0;
    pump.onDispatch = [&] {
        if (chart.samples.size() < 3 || ++dispatchesBehindIt != kInTheLongRow) return;
        dialog.Stop();
        dialog.Pause();
        Load();
        EXPECT_EQ(dialog.asked, 1);
        EXPECT_TRUE(state.stopped);
    };
    Load();
    EXPECT_TRUE(state.stopped);
    pump.onDispatch = nullptr;
    Choose("x.csv", kLog);
    dialog.Pause();
    EXPECT_EQ(chart.samples.size(), 3u + 3u);
}

TEST_F(ReplayLoopTest, ACloseInTheMidstOfALongHeaderPlaysNothing) {
    Choose("x.csv", "Friday,20,November,2026,10:15:30\n038 906 019 FT," + kLongText + kLongText);
    int dispatches = 0;
    pump.onDispatch = [&] {
        if (++dispatches == 2) dialog.Close();
    };
    Load();
    EXPECT_EQ(dispatches, 2) << "it is read no further";
    EXPECT_TRUE(state.stopped);
    EXPECT_FALSE(state.logMode);
    EXPECT_FALSE(dialog.stopActive);
    EXPECT_TRUE(dialog.messages.empty());
}

TEST_F(ReplayLoopTest, ACloseWhileALogIsChosenPlaysNothing) {
    dialog.whileAsked = [this] { dialog.Close(); };
    Load();
    EXPECT_TRUE(state.stopped);
    EXPECT_TRUE(chart.samples.empty());
}

TEST_F(ReplayLoopTest, PressesWhileALogIsChosenAndItsHeaderReadOpenNoOther) {
    Choose("x.csv",
           "Friday,20,November,2026,10:15:30\n038 906 019 FT," + kLongText + std::string(kLog).substr(47));
    const auto press = [this] {
        if (state.logMode) return;
        Load();
        dialog.Pause();
    };
    dialog.whileAsked = press;
    int dispatchesBefore = 0;
    pump.onDispatch = [&] {
        if (!state.logMode) ++dispatchesBefore;
        press();
    };
    Load();
    EXPECT_GE(dispatchesBefore, 10) << "some every 100 KB";
    EXPECT_EQ(dialog.asked, 1);
    EXPECT_EQ(chart.samples.size(), 3u);
    EXPECT_TRUE(state.playing);
}

TEST_F(ReplayLoopTest, PressesBelowTheMessageThatALogIsGoneShowNoOther) {
    Load();
    std::filesystem::remove(folder / "x.csv");
    dialog.whileMessage = [this] { dialog.Pause(); };
    dialog.Pause();
    EXPECT_EQ(dialog.messages.size(), 1u);
}

}  // namespace
}  // namespace plotvane
