#include "tools/sim/DrivePlayer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "tests/unit/tools/sim/ScriptedLink.h"

namespace plotvane {
namespace {

using Milliseconds = HostLink::Milliseconds;

// The value of its only channel is the time of the drive in tenths of a second.
class ClockDrive final : public Drive {
public:
    ClockDrive() {
        m_channels[0].group = 1;
        m_channels[0].unit = "s";
        m_channels[0].decimals = 1;
    }
    const DriveChannels& Channels() const override { return m_channels; }
    double Seconds() const override { return 2; }
    double Value(int, double seconds) const override { return seconds; }
    std::string_view Phase(double) const override { return "ticking"; }

private:
    DriveChannels m_channels;
};

using test::ScriptedLink;

class DrivePlayer : public testing::Test {
protected:
    DrivePlayer() {
        plan.module = "M";
        plan.rate = 2;
        plan.end = HostEnd::Both;
    }
    PlayResult Run() { return Play(link, drive, plan); }

    ClockDrive drive;
    ScriptedLink link;
    PlayPlan plan;
};

TEST_F(DrivePlayer, PlaysToTheEndOfTheDriveAndCloses) {
    plan.end = HostEnd::Close;
    EXPECT_EQ(Run(), PlayResult::Closed);
    EXPECT_EQ(link.Story(), "0.0 0.5 1.0 1.5 2.0 FD ");
}

TEST_F(DrivePlayer, KeepsTheRateAndThePauseBeforeClosing) {
    plan.pause = 0.7;
    Run();
    std::vector<long long> times;
    for (const auto& write : link.sent) {
        if (write.bytes != "\xFF") times.push_back(write.at.count());
    }
    EXPECT_EQ(times, (std::vector<long long>{1000, 1500, 2000, 2500, 3000, 3500, 4200}));
}

TEST_F(DrivePlayer, SaysEvery50MsThatNothingIsNew) {
    plan.seconds = 0.5;
    plan.rate = 4;
    Run();
    EXPECT_EQ(link.Story(true), "0.0 FF FF FF FF 0.2 FF FF FF FF FE FD ");
}

TEST_F(DrivePlayer, SaysNothingWhileTheProgramHasSomethingToRead) {
    plan.seconds = 1;
    link.reads = false;
    plan.end = HostEnd::Stop;
    Run();
    EXPECT_EQ(link.Story(true), "0.0 0.5 FE ");
}

TEST_F(DrivePlayer, SpeedMakesTheDriveShorter) {
    plan.speed = 2;
    Run();
    EXPECT_EQ(link.Story(), "0.0 1.0 2.0 FE FD ");
}

TEST_F(DrivePlayer, LoopRepeatsTheDriveUntilSecondsEndIt) {
    plan.loop = true;
    plan.seconds = 3.5;
    Run();
    EXPECT_EQ(link.Story(), "0.0 0.5 1.0 1.5 0.0 0.5 1.0 FE FD ");
}

TEST_F(DrivePlayer, EndsAsAsked) {
    plan.seconds = 0.5;
    plan.end = HostEnd::Stop;
    EXPECT_EQ(Run(), PlayResult::Stopped);
    EXPECT_EQ(link.Story(), "0.0 FE ");
    link.sent.clear();
    plan.end = HostEnd::Close;
    EXPECT_EQ(Run(), PlayResult::Closed);
    EXPECT_EQ(link.Story(), "0.0 FD ");
    link.sent.clear();
    // The user decides whether a stopped program ever reads the second byte.
    plan.end = HostEnd::Both;
    EXPECT_EQ(Run(), PlayResult::Stopped);
    EXPECT_EQ(link.Story(), "0.0 FE FD ");
}

TEST_F(DrivePlayer, EndsAtOnceWhenTheProgramDoes) {
    link.onWait = [&] { link.gone = link.now > Milliseconds(1800); };
    EXPECT_EQ(Run(), PlayResult::ProgramGone);
    EXPECT_EQ(link.Story(), "0.0 0.5 ");
    EXPECT_LE(link.now, Milliseconds(1850));
}

TEST_F(DrivePlayer, LeavesOutRecordsWhenTheProgramIsTooSlow) {
    link.capacity = 600;
    link.reads = false;
    link.onWait = [&] { link.reads = link.now > Milliseconds(2100); };
    Run();
    EXPECT_EQ(link.Story(), "0.0 1.5 2.0 FE FD ");
    EXPECT_EQ(link.reports.back().records, 3);
    EXPECT_EQ(link.reports.back().heldBack, 2);
}

TEST_F(DrivePlayer, WaitsForRoomForTheLastControlCode) {
    plan.seconds = 0.5;
    link.capacity = RecordBuffer::kBlockSize;
    link.reads = false;
    link.onWait = [&] { link.reads = link.now > Milliseconds(9000); };
    EXPECT_EQ(Run(), PlayResult::Stopped);
    EXPECT_EQ(link.Story(), "0.0 FE FD ");
}

TEST_F(DrivePlayer, ReportsEachRecord) {
    plan.seconds = 1;
    Run();
    ASSERT_EQ(link.reports.size(), 2u);
    EXPECT_EQ(link.reports[1].driveSeconds, 0.5);
    EXPECT_EQ(link.reports[1].records, 2);
    EXPECT_EQ(link.reports[1].phase, "ticking");
    EXPECT_EQ(link.reports[1].values, "0.5 s");
}

TEST_F(DrivePlayer, StopMidBlockLeavesHalfABlockAndClosesThePipe) {
    plan.fault = Fault::StopMidBlock;
    plan.faultAt = 1;
    EXPECT_EQ(Run(), PlayResult::PipeClosed);
    EXPECT_EQ(link.Story(), "0.0 0.5 [256] ");
    EXPECT_TRUE(link.closed);
    EXPECT_GE(link.now, Milliseconds(3000));  // silent until the end of the drive
}

TEST_F(DrivePlayer, DieLeavesHalfABlockAndNoMore) {
    plan.fault = Fault::Die;
    plan.faultAt = 1;
    EXPECT_EQ(Run(), PlayResult::Died);
    EXPECT_EQ(link.Story(), "0.0 0.5 [256] ");
    EXPECT_TRUE(link.died);
}

TEST_F(DrivePlayer, MalformedSendsOneBadRecordAndGoesOn) {
    plan.fault = Fault::Malformed;
    plan.faultAt = 1;
    Run();
    EXPECT_EQ(link.Story(), "0.0 0.5 [513] 1.0 1.5 2.0 FE FD ");
    const auto bad = std::ranges::find_if(
        link.sent, [](const auto& write) { return write.bytes.starts_with("M,G001,X0,0,,"); });
    EXPECT_NE(bad, link.sent.end());
}

TEST_F(DrivePlayer, SilenceSendsNothingUntilTheFinalControlCode) {
    plan.fault = Fault::Silence;
    plan.faultAt = 1;
    EXPECT_EQ(Run(), PlayResult::Stopped);
    EXPECT_EQ(link.Story(true).substr(link.Story(true).find("0.5 ")),
              "0.5 FF FF FF FF FF FF FF FF FF FE FD ");
}

TEST_F(DrivePlayer, FloodFillsTheTimeBetweenTheRecords) {
    plan.fault = Fault::Flood;
    plan.faultAt = 1;
    Run();
    std::size_t idle = 0;
    for (const auto& write : link.sent) {
        if (write.at >= Milliseconds(2000) && write.bytes.find_first_not_of('\xFF') == std::string::npos)
            idle += write.bytes.size();
    }
    EXPECT_EQ(idle, 1.5 * 20'000);
}

TEST_F(DrivePlayer, GarbageIsOneBlockThatBeginsWithNoControlCode) {
    plan.fault = Fault::Garbage;
    plan.faultAt = 1;
    Run();
    EXPECT_EQ(link.Story(), "0.0 0.5 [513] 1.0 1.5 2.0 FE FD ");
}

TEST_F(DrivePlayer, KeepOpenPlaysAgainWhenTheProgramReadsAgain) {
    plan.keepOpen = true;
    plan.fault = Fault::Malformed;
    plan.faultAt = 0;
    plan.seconds = 0.5;
    int stops = 0;
    link.onWait = [&] {
        // The program stops at 0xFE: the next bytes stay unread until its user resumes it.
        const auto isStop = [](const auto& write) { return write.bytes == "\xFE"; };
        const auto now = std::ranges::count_if(link.sent, isStop);
        if (now > stops && link.sent.back().bytes == "\xFF") {
            link.reads = link.now > Milliseconds(5000) * (stops + 1);
            if (link.reads) ++stops;
        }
        link.gone = stops == 2;
    };
    EXPECT_EQ(Run(), PlayResult::ProgramGone);
    EXPECT_EQ(link.Story(), "[513] 0.0 FE 0.0 FE ");
    EXPECT_GE(link.now, Milliseconds(10'000));
}

}  // namespace
}  // namespace plotvane
