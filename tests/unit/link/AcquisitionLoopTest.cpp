#include "link/AcquisitionLoop.h"

#include <gmock/gmock.h>

#include <string>

#include "res/resource.h"
#include "tests/support/AcquisitionFixture.h"

namespace plotvane {
namespace {

using test::BlockOf;
using test::EngineRecord;
using Range = test::FakeChart::Range;

std::string Empty(int slots) {
    std::string items;
    for (int i = 0; i < slots; ++i) items += "G000,,,,";
    return items;
}

// Ten channels, and two rows of slots.
std::string ObdRecord(const std::string& rows = Empty(8)) {
    std::string record = "038 906 019 FT,GZER,F0,12,,GZER,F1,128,,";
    for (char digit = '2'; digit <= '9'; ++digit) {
        record.append("GZER,F").append(1, digit).append(",1").append(1, digit).append(",,");
    }
    return record.append(rows);
}

class LiveLoopTest : public test::AcquisitionFixture {
protected:
    LiveLoopTest() {
        state.hostRunning = true;
        test::WriteBytes(folder / "MB-PIPE.TXT", "5\n");
    }
    void Run() { acquisition.control.StartLive(); }
};

TEST_F(LiveLoopTest, ARecordGoesFromThePipeOntoTheChart) {
    pipe.Write(BlockOf(EngineRecord()));
    pipe.Write("\xFE");
    Run();
    EXPECT_EQ(pipe.descriptor, 5);
    EXPECT_EQ(dialog.title, u"Plotvane  -  Live Data  -  038 906 019 FT");
    ASSERT_EQ(chart.samples.size(), 1u);
    EXPECT_EQ(chart.samples[0][0], 780.0);
    EXPECT_EQ(chart.samples[0][3], 4.2);
    EXPECT_FALSE(chart.rangeSetWhileOn);  // with drawing on, each range would redraw the whole chart
    EXPECT_FALSE(chart.appendedWhileOff);
    EXPECT_EQ(panel.values[1],
              "90 \xB0"
              "C");
    EXPECT_EQ(panel.valuesDrawn, 1);
    EXPECT_EQ(panel.selected, 0);
    EXPECT_EQ(panel.limits, std::make_pair(0, 6000));
    EXPECT_EQ(meters.slots[2].value, 50.0);
    EXPECT_TRUE(panel.fuelButtons);
    EXPECT_NEAR(meters.mileage.value, 28.0017, 5e-5);
    EXPECT_DOUBLE_EQ(meters.consumption.value, 8.4);
}

TEST_F(LiveLoopTest, EveryMeterTakesItsValue) {
    std::string record = "038 906 019 FT,";
    const char* const kRows[] = {"001", "002", "003"};
    for (int slot = 0; slot < kSlotCount; ++slot) {
        record.append("G").append(kRows[RowOf(slot)]).append(",F").append(std::to_string(ColumnOf(slot)));
        record.append(",").append(std::to_string(50 + slot)).append(",x,");
    }
    pipe.Write(BlockOf(record));
    pipe.Write("\xFE");
    Run();
    EXPECT_EQ(panel.selected, 0);
    for (int slot = 0; slot < kSlotCount; ++slot) {
        EXPECT_EQ(meters.slots[slot].value, 50.0 + slot) << slot;
    }
    // The meters of the ten channels take the first ten values of the sample, whatever its form.
    for (int channel = 0; channel < kChannelCount; ++channel) {
        EXPECT_EQ(meters.channels[channel], 50.0 + channel) << channel;
    }
}

TEST_F(LiveLoopTest, EachRunSelectsTheFirstSlotAtItsFirstRecordAndLeavesTheUsersChoiceAlone) {
    pipe.Write(BlockOf(EngineRecord()));
    pipe.Write("\xFE");
    Run();
    acquisition.loop.Selection().SelectSlot(0, 2);

    // The same groups again, so that only the new run can select the slot.
    for (int i = 0; i < 2; ++i) pipe.Write(BlockOf(EngineRecord()));
    pipe.Write("\xFE");
    const int selections = panel.selections;
    dialog.Pause();
    EXPECT_EQ(chart.samples.size(), 3u);
    EXPECT_EQ(panel.selected, 0);
    EXPECT_EQ(panel.selections, selections + 1);
}

TEST_F(LiveLoopTest, TheScalingFilesAreMadeAndTheRangesSaved) {
    pipe.Write(BlockOf(EngineRecord()));
    pipe.Write("\xFE");
    Run();
    EXPECT_EQ(test::BytesOf(ScalingFile("Defaults.cfg")),
              "/min,0,6000,\r\nV,0,20,\r\n\xB0"
              "C,-10,120,\r\nmg/str,0,1500,\r\n%,-50,150,\r\nkm/h,0,250,\r\n"
              "mbar,900,2500,\r\nNm,0,400,\r\n\xB0,-50,50,\r\nms,0,30,\r\n");
    const std::string saved = test::BytesOf(ScalingFile("038-906-019-FT.SCL"));
    EXPECT_EQ(saved.substr(0, saved.find("2,0,")), "3,\r\n1,0,6000,-10,120,0,250,0,100,\r\n");
    EXPECT_TRUE(dialog.messages.empty());
}

TEST_F(LiveLoopTest, TheFirstSampleIsErasedByTheRedrawAndTheSecondIsNot) {
    pipe.Write(BlockOf(EngineRecord()));
    pipe.Write(BlockOf(EngineRecord()));
    pipe.Write("\xFE");
    Run();
    EXPECT_EQ(chart.samples.size(), 2u);
    EXPECT_EQ(chart.redraws, 1);
    EXPECT_FALSE(state.redrawRequest);
}

TEST_F(LiveLoopTest, TheStopByteStopsAndOffersToStartOver) {
    pipe.Write("\xFF\xFE");
    dialog.look.stopEnabled = true;  // whatever the run before left
    dialog.look.loadActive = true;
    Run();
    EXPECT_FALSE(dialog.look.loadActive);
    EXPECT_TRUE(state.stopped);
    EXPECT_TRUE(state.restartAfterStop);
    EXPECT_EQ(dialog.look.pause, PauseImage::StartOver);
    EXPECT_TRUE(dialog.look.pauseEnabled);
    EXPECT_FALSE(dialog.look.stopEnabled);
    EXPECT_EQ(dialog.closes, 0);
}

TEST_F(LiveLoopTest, AClosedPipeStopsAsTheStopByteDoes) {
    pipe.closed = true;
    Run();
    EXPECT_TRUE(state.stopped);
    EXPECT_TRUE(state.restartAfterStop);
    EXPECT_EQ(dialog.closes, 0);
}

TEST_F(LiveLoopTest, TheCloseByteClosesTheProgram) {
    pipe.Write("\xFD");
    Run();
    EXPECT_EQ(dialog.closes, 1);
}

TEST_F(LiveLoopTest, WithoutTheExchangeFileTheProgramSaysSoAndCloses) {
    std::filesystem::remove(folder / "MB-PIPE.TXT");
    Run();
    ASSERT_EQ(dialog.messages.size(), 1u);
    EXPECT_EQ(dialog.messages[0], std::make_pair(IDS_NO_EXCHANGE_FILE, IDS_CANNOT_RUN));
    EXPECT_EQ(dialog.closes, 1);
    EXPECT_EQ(pipe.descriptor, -2);
}

TEST_F(LiveLoopTest, AStopBeforeTheFirstRecordWritesNothing) {
    pipe.Write("\xFE");
    Run();
    EXPECT_FALSE(std::filesystem::exists(folder / "Scaling"));
    EXPECT_TRUE(dialog.messages.empty());
}

TEST_F(LiveLoopTest, AMalformedRecordFreezesTheDisplayAndStopCannotRestartIt) {
    pipe.Write(BlockOf(EngineRecord()));
    pipe.Write(BlockOf("038 906 019 FT,G001,X0,"));
    pipe.Write(BlockOf(EngineRecord("038 906 019 FT", "900")));
    Run();
    EXPECT_FALSE(state.stopped);
    EXPECT_EQ(chart.samples.size(), 1u);
    EXPECT_EQ(panel.values[0], "780 /min");
    Run();
    EXPECT_EQ(chart.samples.size(), 1u);
    dialog.Close();
    EXPECT_TRUE(state.stopped);
}

TEST_F(LiveLoopTest, AMalformedFirstRecordLeavesTheStoredRangesAlone) {
    std::filesystem::create_directory(folder / "Scaling");
    const std::string stored = "3,\r\n1,0,5000,0,100,0,100,0,100,\r\n255,0,1,0,1,0,1,0,1,\r\n";
    test::WriteBytes(ScalingFile("038-906-019-FT.SCL"), stored);
    pipe.Write(BlockOf("038 906 019 FT,G001,X0,"));
    Run();
    dialog.Close();
    EXPECT_EQ(test::BytesOf(ScalingFile("038-906-019-FT.SCL")), stored);
}

TEST_F(LiveLoopTest, ARecordWithoutACommaIsMalformed) {
    pipe.Write(std::string(513, 'x'));
    Run();
    EXPECT_FALSE(state.stopped);
    EXPECT_TRUE(chart.samples.empty());
    EXPECT_EQ(acquisition.module.Key(), "");
}

TEST_F(LiveLoopTest, PauseAfterAStopReadsOnFromTheSamePipe) {
    pipe.Write(BlockOf(EngineRecord()));
    pipe.Write("\xFE");
    pipe.Write(BlockOf(EngineRecord("038 906 019 FT", "900")));
    pipe.Write("\xFE");
    Run();
    state.playing = false;  // whatever the run before left
    dialog.Pause();
    EXPECT_EQ(chart.samples.size(), 2u);
    EXPECT_EQ(panel.values[0], "900 /min");
    EXPECT_TRUE(state.playing);
}

TEST_F(LiveLoopTest, ARestartedRunCanBeHeldAndResumed) {
    pipe.Write("\xFE");
    Run();
    pipe.Write(BlockOf(EngineRecord()));
    pipe.Write(BlockOf(EngineRecord()));
    pipe.Write("\xFE");
    After(60.0, [&] {
        EXPECT_EQ(dialog.look.pause, PauseImage::Pause);
        EXPECT_FALSE(state.restartAfterStop);
        dialog.Pause();
    });
    After(500.0, [&] {
        EXPECT_FALSE(state.playing);
        EXPECT_EQ(dialog.look.pause, PauseImage::Resume);
        dialog.Pause();
    });
    dialog.Pause();
    EXPECT_EQ(chart.samples.size(), 2u);
    EXPECT_EQ(chart.gaps.size(), 1u);
}

TEST_F(LiveLoopTest, StopAndPauseInOnePumpLeaveOneLoopRunning) {
    int depth = 0;
    After(120.0, [&] {
        dialog.Stop();
        dialog.Pause();
        depth = state.stopped ? 0 : 1;
        pipe.Write(BlockOf(EngineRecord()));
        pipe.Write("\xFE");
    });
    Run();
    EXPECT_EQ(depth, 1);  // the new run was accepted, and its start returned before it ran
    EXPECT_EQ(chart.samples.size(), 1u);
    EXPECT_TRUE(state.stopped);
}

TEST_F(LiveLoopTest, ASecondStartIsRefusedWhileARunIsOn) {
    After(120.0, [&] { Run(); });
    After(300.0, [&] { dialog.Stop(); });
    Run();
    EXPECT_EQ(state.generation, 1u);
}

TEST_F(LiveLoopTest, StopTwiceActsOnce) {
    pipe.Write(BlockOf(EngineRecord()));
    pipe.Write("\xFE");
    Run();
    test::WriteBytes(ScalingFile("038-906-019-FT.SCL"), "untouched");
    dialog.Stop();
    EXPECT_EQ(test::BytesOf(ScalingFile("038-906-019-FT.SCL")), "untouched");
}

TEST_F(LiveLoopTest, CloseEndsTheRunAtEveryPointWhereMessagesAreDispatched) {
    pipe.Write(BlockOf(EngineRecord()));
    pipe.Write(BlockOf(EngineRecord()).substr(0, 100));
    for (double ms = 0.0; ms < 400.0; ms += 5.0) {
        After(ms, [&] { dialog.Close(); });
        Run();
        ASSERT_TRUE(state.stopped) << ms;
    }
}

TEST_F(LiveLoopTest, PauseHoldsAndLeavesAGap) {
    for (int i = 0; i < 3; ++i) pipe.Write(BlockOf(EngineRecord()));
    pipe.Write("\xFE");
    std::size_t samplesBefore = 0;
    After(60.0, [&] {
        samplesBefore = chart.samples.size();
        dialog.Pause();
    });
    After(1000.0, [&] {
        EXPECT_EQ(dialog.look.pause, PauseImage::Resume);
        EXPECT_LT(samplesBefore, 3u);
        EXPECT_EQ(chart.samples.size(), samplesBefore);
        dialog.Pause();
    });
    Run();
    EXPECT_EQ(chart.samples.size(), 3u);
    EXPECT_EQ(chart.gaps.size(), 1u);
}

TEST_F(LiveLoopTest, CloseInsideAHoldEndsBoth) {
    pipe.Write(BlockOf(EngineRecord()));
    After(60.0, [&] { dialog.Pause(); });
    After(500.0, [&] { dialog.Close(); });
    Run();
    EXPECT_TRUE(state.stopped);
    EXPECT_TRUE(chart.gaps.empty());
    EXPECT_FALSE(state.halted);
}

TEST_F(LiveLoopTest, TheObdFormShowsTenChannelsAndLoadsNoScaling) {
    pipe.Write(BlockOf(ObdRecord()));
    pipe.Write(BlockOf(ObdRecord()));
    pipe.Write("\xFE");
    state.redrawRequest = false;
    Run();
    EXPECT_TRUE(panel.tenChannels);
    EXPECT_EQ(chart.ranges[0], (Range{-1, 256}));
    ASSERT_EQ(chart.samples.size(), 2u);
    EXPECT_EQ(chart.samples[0], (TraceValues{12, 128, 12, 13, 14, 15, 16, 17, 18, 19, -1, -1}));
    EXPECT_THAT(meters.channels, testing::ElementsAre(12, 128, 12, 13, 14, 15, 16, 17, 18, 19));
    EXPECT_EQ(chart.redraws, 1);  // the form changed once
    EXPECT_FALSE(std::filesystem::exists(folder / "Scaling"));
    EXPECT_EQ(dialog.title, u"Plotvane  -  Live Data  -  038 906 019 FT");
}

TEST_F(LiveLoopTest, BelowTenChannelsTheFuelFiguresComeFromTheTwoRowsThatAreLeft) {
    pipe.Write(BlockOf(ObdRecord("G007,F0,8,l/h,G007,F1,100,km/h," + Empty(6))));
    pipe.Write("\xFE");
    Run();
    EXPECT_TRUE(panel.fuelButtons);
    EXPECT_DOUBLE_EQ(meters.consumption.value, 8.0);
    EXPECT_EQ(panel.values[4], "8 l/h");
}

TEST_F(LiveLoopTest, BackInTheNormalFormTheSlotsAreDrawnAgain) {
    pipe.Write(BlockOf(EngineRecord()));
    pipe.Write(BlockOf(ObdRecord()));
    pipe.Write(BlockOf(EngineRecord()));
    pipe.Write("\xFE");
    Run();
    EXPECT_FALSE(panel.tenChannels);
    EXPECT_TRUE(panel.shown[0]);
    EXPECT_EQ(chart.samples.back()[0], 780.0);
}

TEST_F(LiveLoopTest, GenericObdIdentifiersKeepOnePairALine) {
    pipe.Write(BlockOf("OBD,G012,F0,780,/min,G013,F0,51,km/h," + Empty(10)));
    pipe.Write("\xFE");
    Run();
    EXPECT_TRUE(state.obdFile);
    EXPECT_EQ(dialog.title, u"Plotvane  -  Live Data  -  OBD");
    EXPECT_EQ(panel.values[4], "PID 12");
    const std::string saved = test::BytesOf(ScalingFile("OBD.SCL"));
    EXPECT_NE(saved.find("\r\n12,0,6000,\r\n13,0,250,\r\n14,0,100,\r\n"), std::string::npos);

    // The next module is still marked as generic OBD.
    pipe.Write(BlockOf(EngineRecord()));
    pipe.Write("\xFE");
    dialog.Pause();
    const std::string later = test::BytesOf(ScalingFile("038-906-019-FT.SCL"));
    EXPECT_NE(later.find("\r\n1,0,"), std::string::npos);
    EXPECT_EQ(later.substr(later.find("\r\n2,"), 12), "\r\n2,0,100,\r\n");
}

TEST_F(LiveLoopTest, AnotherModuleIsFollowedOnlyAfterARestart) {
    pipe.Write(BlockOf(EngineRecord("AAA 111 222")));
    pipe.Write(BlockOf(EngineRecord("BBB 111 222")));
    pipe.Write("\xFE");
    Run();
    EXPECT_EQ(acquisition.module.Key(), "AAA-111-222.SCL");
    pipe.Write(BlockOf(EngineRecord("BBB 111 222")));
    pipe.Write("\xFE");
    dialog.Pause();
    EXPECT_EQ(acquisition.module.Key(), "BBB-111-222.SCL");
    EXPECT_TRUE(std::filesystem::exists(ScalingFile("BBB-111-222.SCL")));
}

TEST_F(LiveLoopTest, ScalingThatCouldNotBeLoadedIsNotSavedAndAMessageSaysSo) {
    test::WriteBytes(folder / "Scaling", "a file in the folder's place");
    pipe.Write(BlockOf(EngineRecord()));
    pipe.Write("\xFE");
    Run();
    EXPECT_EQ(panel.values[0], "780 /min");
    ASSERT_EQ(dialog.messages.size(), 1u);
    EXPECT_EQ(dialog.messages[0], std::make_pair(IDS_SCALING_NOT_SAVED, IDS_ERROR));
    EXPECT_EQ(test::BytesOf(folder / "Scaling"), "a file in the folder's place");
}

TEST_F(LiveLoopTest, ScalingThatCannotBeSavedIsReported) {
    pipe.Write(BlockOf(EngineRecord()));
    After(120.0, [&] {
        std::filesystem::remove(ScalingFile("038-906-019-FT.SCL"));
        std::filesystem::create_directory(ScalingFile("038-906-019-FT.SCL"));
        dialog.Stop();
    });
    Run();
    ASSERT_EQ(dialog.messages.size(), 1u);
    EXPECT_EQ(dialog.messages[0], std::make_pair(IDS_SCALING_NOT_SAVED, IDS_ERROR));
}

TEST_F(LiveLoopTest, LoadDoesNothingWithTheHost) {
    acquisition.control.LoadLog();
    EXPECT_EQ(dialog.asked, 0);
}

}  // namespace
}  // namespace plotvane
