#include "app/DriveRecorder.h"

#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "plot/binding/AirFuelRule.h"
#include "tests/support/ReplayFixture.h"

namespace plotvane {
namespace {

using testing::ElementsAre;

constexpr const char* kModule = "038 906 019 FT";

std::string LambdaRecord(const char* lambda) {
    return std::string(kModule) + ",G031,F0," + lambda + ",,G031,F1,50,%," + test::Empty(10);
}

std::string ChannelRecord() {
    std::string record = "01-ECU,";
    for (int field = 0; field < kChannelCount; ++field)
        record += "GZER,F" + std::to_string(field) + "," + std::to_string(100 + field) + ",,";
    return record + test::Empty(8);
}

// Passes samples on, and does something with each.
struct Noting : SampleKeeper {
    Noting(SampleKeeper& keeper, std::function<void(double seconds)> onSample)
        : next(keeper), noted(std::move(onSample)) {}
    void MarkGap() override { next.MarkGap(); }
    void Take(double seconds, const Sample& sample, const CurrentModule& module) override {
        next.Take(seconds, sample, module);
        noted(seconds);
    }
    SampleKeeper& next;
    std::function<void(double)> noted;
};

// The whole acquisition, recorded.
class DriveRecorderTest : public test::ReplayFixture {
protected:
    DriveRecorderTest() { keeper.keeper = &recorder; }

    void Send(const std::string& record) { pipe.Write(test::BlockOf(record)); }
    void RunLive() {
        test::WriteBytes(folder / "MB-PIPE.TXT", "5\n");
        state.hostRunning = true;
        pipe.Write("\xFE");
        acquisition.control.StartLive();
    }
    void RunLive(const std::string& record) {
        Send(record);
        RunLive();
    }
    void WriteLabels(const char* name, const char* text) {
        std::filesystem::create_directory(folder / "labels");
        test::WriteBytes(folder / "labels" / name, text);
    }

    // Of all that is recorded.
    std::vector<double> Times() const {
        std::vector<double> times;
        for (auto sample = recording.Begin(); sample < recording.End(); ++sample)
            times.push_back(recording.Seconds(sample));
        return times;
    }
    std::vector<double> Values(int trace) const {
        std::vector<double> values;
        for (auto sample = recording.Begin(); sample < recording.End(); ++sample)
            values.push_back(recording.Value(trace, sample));
        return values;
    }
    std::vector<std::int64_t> Breaks() const {
        std::vector<std::int64_t> breaks;
        for (auto sample = recording.Begin(); sample < recording.End(); ++sample) {
            if (recording.IsBreak(sample)) breaks.push_back(sample);
        }
        return breaks;
    }
    const RecordedTrace& Last(int trace) const {
        return recording.Stretches().back().traces[static_cast<std::size_t>(trace)];
    }

    Recording recording;
    ChartColumns columns;
    DriveRecorder recorder{recording, columns, "Field#"};
};

TEST_F(DriveRecorderTest, ALiveDriveIsRecordedFromItsFirstSampleOn) {
    pump.Pass(5000.0);
    std::vector<double> clock;
    Noting noting(recorder, [&](double seconds) { clock.push_back(seconds); });
    keeper.keeper = &noting;
    Send(test::EngineRecord(kModule, "780"));
    RunLive(test::EngineRecord(kModule, "1240"));
    ASSERT_EQ(clock.size(), 2U);
    EXPECT_GE(clock[0], 6.0);
    EXPECT_GT(clock[1], clock[0]);
    EXPECT_THAT(Times(), ElementsAre(0.0, clock[1] - clock[0]));
    EXPECT_THAT(Values(0), ElementsAre(780.0, 1240.0));
    EXPECT_THAT(Values(3), ElementsAre(4.2, 4.2));
    EXPECT_EQ(recording.Title(), kModule);
    EXPECT_EQ(Last(0).unit, "/min");
    EXPECT_EQ(Last(0).upper, 6000.0);
    EXPECT_FALSE(Last(4).isActive);
}

TEST_F(DriveRecorderTest, ALogIsRecordedWithItsStamps) {
    Load();
    // The first row has none in row A, and 0.12 in row B.
    EXPECT_THAT(Times(), ElementsAre(0.12, 0.5, 3.5));
    EXPECT_THAT(Values(1), ElementsAre(90.0, 90.0, 91.8));
}

TEST_F(DriveRecorderTest, EachReplayBeginsAfresh) {
    Load();
    const auto run = recording.Run();
    dialog.Pause();
    EXPECT_EQ(recording.Run(), run + 1);
    EXPECT_EQ(recording.End(), 3);
    Load();
    EXPECT_EQ(recording.Run(), run + 2);
    EXPECT_EQ(recording.End(), 3);
}

TEST_F(DriveRecorderTest, AHoldIsAGap) {
    After(600.0, [&] { dialog.Pause(); });
    After(9000.0, [&] { dialog.Pause(); });
    Load();
    EXPECT_THAT(Breaks(), ElementsAre(0, 2));
}

TEST_F(DriveRecorderTest, AJumpInTheTimeOfALogIsAGap) {
    Choose("x.csv", std::string(test::kReplayedLog) +
                        "3,8.50,900,90.0,0.9,1.00,8.62,900,240,238,12,,,,,\n"
                        "4,13.51,900,90.0,0.9,1.00,13.62,900,240,238,12,,,,,\n"
                        "5,14.00,900,90.0,0.9,1.00,14.12,900,240,238,12,,,,,\n");
    Load();
    EXPECT_THAT(Times(), ElementsAre(0.12, 0.5, 3.5, 8.5, 13.51, 14.0));
    EXPECT_THAT(Breaks(), ElementsAre(0, 4));
}

TEST_F(DriveRecorderTest, ASilenceOfTheHostIsAGap) {
    Send(test::EngineRecord(kModule, "780"));
    Noting silent(recorder, [this](double) {
        if (recording.End() == 1) pump.Pass(5001.0);
    });
    keeper.keeper = &silent;
    Send(test::EngineRecord(kModule, "900"));
    RunLive(test::EngineRecord(kModule, "910"));
    EXPECT_THAT(Breaks(), ElementsAre(0, 1));
    EXPECT_EQ(recording.End(), 3);
}

TEST_F(DriveRecorderTest, ALiveRunThatGoesOnAfterAStopGoesOnAfterAGap) {
    RunLive(test::EngineRecord(kModule, "780"));
    const auto run = recording.Run();
    pump.Pass(60'000.0);
    Send(test::EngineRecord(kModule, "900"));
    pipe.Write("\xFE");
    dialog.Pause();
    EXPECT_EQ(recording.Run(), run);
    EXPECT_THAT(Values(0), ElementsAre(780.0, 900.0));
    EXPECT_THAT(Breaks(), ElementsAre(0, 1));
    EXPECT_GT(Times()[1], 60.0);
}

TEST_F(DriveRecorderTest, AnotherModuleBeginsAfresh) {
    RunLive(test::EngineRecord(kModule, "780"));
    Send(test::EngineRecord("1J0 907 379", "12"));
    pipe.Write("\xFE");
    dialog.Pause();
    EXPECT_EQ(recording.Title(), "1J0 907 379");
    EXPECT_THAT(Values(0), ElementsAre(12.0));
    EXPECT_THAT(Times(), ElementsAre(0.0));
}

TEST_F(DriveRecorderTest, ANameIsThatOfTheLabel) {
    WriteLabels("038-906-019-FT.LBL", "001,0,Idle\r\n001,1,Engine speed,actual\r\n001,3,Speed\r\n");
    RunLive(test::EngineRecord(kModule));
    EXPECT_EQ(Last(0).name, "Engine speed actual");
    EXPECT_EQ(Last(1).name, "");
    EXPECT_EQ(Last(2).name, "Speed");
}

TEST_F(DriveRecorderTest, TenChannelsAreRecordedAsTheFirstTenTraces) {
    RunLive(ChannelRecord());
    ASSERT_EQ(recording.End(), 1);
    EXPECT_EQ(recording.Value(0, 0), 100.0);
    EXPECT_EQ(recording.Value(9, 0), 109.0);
    EXPECT_EQ(Last(9).name, "Field#10");
    EXPECT_EQ(Last(9).upper, 256.0);
    EXPECT_FALSE(Last(10).isActive);
    EXPECT_TRUE(recording.IsDrawn(9, 0));
    EXPECT_FALSE(recording.IsDrawn(10, 0));
}

TEST_F(DriveRecorderTest, APidIsNamedAsInItsBox) {
    Choose("x.csv",
           "Friday,20,November,2026,10:15:30\n"
           "OBD-II,generic data\n"
           "PID- 012- 013- 000- 000\n"
           "(/min)(km/h)\n"
           "0,0.00,780,0.05,0,,,,\n"
           "1,0.50,1240,0.55,12,,,,\n");
    Load();
    EXPECT_EQ(Last(0).name, "PID 12");
    EXPECT_THAT(Values(0), ElementsAre(780.0, 1240.0));
}

// The value stays in the recording, and can be looked at.
TEST_F(DriveRecorderTest, AnUntickedTraceIsRecordedAsNotDrawn) {
    Send(test::EngineRecord(kModule, "780"));
    Noting unticking(recorder, [this](double) { panel.shown[0] = false; });
    keeper.keeper = &unticking;
    RunLive(test::EngineRecord(kModule, "1240"));
    EXPECT_THAT(Values(0), ElementsAre(780.0, 1240.0));
    EXPECT_TRUE(recording.IsDrawn(0, 0));
    EXPECT_FALSE(recording.IsDrawn(0, 1));
    EXPECT_TRUE(recording.IsDrawn(1, 1));
}

TEST_F(DriveRecorderTest, LambdaIsRecordedAsTheRatioThatTheBoxShows) {
    panel.airFuelOn[0] = panel.airFuelOn[1] = true;
    RunLive(LambdaRecord("1.0"));
    EXPECT_EQ(recording.Value(0, 0), kStoichiometricRatio);
    EXPECT_TRUE(Last(0).isRatio);
    EXPECT_FALSE(Last(1).isRatio) << "it has a unit";
}

// What leaves the range in which the ratio is shown for a moment stays the same field.
TEST_F(DriveRecorderTest, AValueThatIsNoLambdaBeginsNoStretch) {
    panel.airFuelOn[0] = true;
    Send(LambdaRecord("1.0"));
    Send(LambdaRecord("1.99"));
    RunLive(LambdaRecord("1.0"));
    EXPECT_EQ(recording.End(), 3);
    EXPECT_EQ(recording.Stretches().size(), 1U);
}

TEST_F(DriveRecorderTest, AMalformedRecordIsNotRecorded) {
    Send(test::EngineRecord(kModule, "780"));
    RunLive("broken");
    EXPECT_THAT(Values(0), ElementsAre(780.0));
}

}  // namespace
}  // namespace plotvane
