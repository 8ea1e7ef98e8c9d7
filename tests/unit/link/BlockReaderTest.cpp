#include "link/BlockReader.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/FakePump.h"
#include "tests/support/Records.h"
#include "tests/support/ScriptedPipe.h"

namespace plotvane {
namespace {

constexpr std::nullopt_t kRecord = std::nullopt;  // the buffer holds a record

class BlockReaderTest : public testing::Test {
protected:
    BlockReaderTest() {
        state.stopped = false;
        reader.Attach(5);
    }
    std::optional<RunEnd> Read() { return reader.Read(record, LoopRun(state)); }

    // A click that stops the run, some time from now.
    void StopAfter(double ms) {
        pump.At(pump.NowMs() + ms, [this] { state.stopped = true; });
    }

    RunState state;
    RecordBuffer record;
    test::ScriptedPipe pipe;
    test::FakePump pump;
    BlockReader reader{pipe, pump};
};

TEST_F(BlockReaderTest, GivesTheLeadByteAndThe512BytesAfterIt) {
    std::string block(513, 'b');
    block.front() = '0';
    block.back() = 'e';
    pipe.Write(block);
    EXPECT_EQ(Read(), kRecord);
    EXPECT_EQ(record.Text(), block);
}

TEST_F(BlockReaderTest, WaitsOutTheRoundBeforeEachLeadByte) {
    for (const char* record : {"one,", "two,", "three,"}) pipe.Write(test::BlockOf(record));
    EXPECT_EQ(Read(), kRecord);
    const double first = pump.NowMs();
    EXPECT_EQ(Read(), kRecord);
    EXPECT_EQ(Read(), kRecord);
    EXPECT_EQ(pump.NowMs() - first, 100.0);
    EXPECT_EQ(record.Text(), "three,");
}

TEST_F(BlockReaderTest, TheTimeThatARecordTakesDoesNotSlowThePace) {
    pipe.Write(test::BlockOf("one,"));
    pipe.Write(test::BlockOf("two,"));
    EXPECT_EQ(Read(), kRecord);
    const double first = pump.NowMs();
    pump.Pass(30.0);
    EXPECT_EQ(Read(), kRecord);
    EXPECT_EQ(pump.NowMs() - first, 50.0);
}

TEST_F(BlockReaderTest, DispatchesMessagesBeforeEveryBlockHoweverLateItIs) {
    pipe.Write(test::BlockOf("one,"));
    pump.Pass(500.0);
    EXPECT_EQ(Read(), kRecord);
    EXPECT_GE(pump.dispatches, 1);
}

TEST_F(BlockReaderTest, DropsNothingNewBytesAndTakesWhatFollows) {
    pipe.Write("\xFF\xFF\xFF" + test::BlockOf("record,"));
    EXPECT_EQ(Read(), kRecord);
    EXPECT_EQ(record.Text(), "record,");
}

TEST_F(BlockReaderTest, AnIdleHostKeepsTheWindowAliveUntilItStops) {
    for (int i = 0; i < 1000; ++i) pipe.Write("\xFF");
    StopAfter(20000.0);
    EXPECT_EQ(Read(), RunEnd::Interrupted);
    EXPECT_GE(pump.dispatches, 400);  // at least once in each round of 50 ms
}

TEST_F(BlockReaderTest, AClickInsideARoundIsHandledAtOnce) {
    const double clickMs = pump.NowMs() + 20017.0;
    pump.At(clickMs, [this] { state.stopped = true; });
    EXPECT_EQ(Read(), RunEnd::Interrupted);
    EXPECT_EQ(pump.NowMs(), clickMs);
}

TEST_F(BlockReaderTest, AQuietRoundIsOneSleep) {
    pipe.Write(test::BlockOf("one,"));
    pipe.Write(test::BlockOf("two,"));
    EXPECT_EQ(Read(), kRecord);
    const int before = pump.dispatches;
    EXPECT_EQ(Read(), kRecord);
    EXPECT_EQ(pump.dispatches - before, 1);
}

TEST_F(BlockReaderTest, ClicksDoNotShortenTheRound) {
    pipe.Write(test::BlockOf("one,"));
    pipe.Write(test::BlockOf("two,"));
    EXPECT_EQ(Read(), kRecord);
    const double first = pump.NowMs();
    for (const double ms : {3.0, 20.0, 49.0}) pump.At(first + ms, [] {});
    EXPECT_EQ(Read(), kRecord);
    EXPECT_EQ(pump.NowMs() - first, 50.0);
}

// A host that writes "nothing new" faster than anybody can read it.
struct FloodedPipe : HostPipe {
    void Attach(int) override {}
    int TryRead(std::span<char> buffer) override {
        std::ranges::fill(buffer, '\xFF');
        return static_cast<int>(buffer.size());
    }
};

TEST_F(BlockReaderTest, AFloodOfNothingNewBytesDoesNotHoldTheWindowUp) {
    FloodedPipe flood;
    BlockReader flooded{flood, pump};
    flooded.Attach(5);
    const double began = pump.NowMs();
    StopAfter(120.0);
    EXPECT_EQ(flooded.Read(record, LoopRun(state)), RunEnd::Interrupted);
    EXPECT_EQ(pump.NowMs() - began, 120.0);
}

TEST_F(BlockReaderTest, ARoundThatCameLateIsMadeUpForByTheNext) {
    for (const char* record : {"one,", "two,", "three,", "four,"}) pipe.Write(test::BlockOf(record));
    const auto waited = [this] {
        const double before = pump.NowMs();
        EXPECT_EQ(Read(), kRecord);
        return pump.NowMs() - before;
    };
    waited();
    pump.Pass(70.0);
    EXPECT_EQ(waited(), 0.0);
    EXPECT_EQ(waited(), 30.0);
    pump.Pass(101.0);  // more than a whole round late: the rounds start again from now
    EXPECT_EQ(waited(), 0.0);
    pipe.Write(test::BlockOf("five,"));
    EXPECT_EQ(waited(), 50.0);
}

TEST_F(BlockReaderTest, TellsTheControlBytesApart) {
    pipe.Write("\xFE");
    EXPECT_EQ(Read(), RunEnd::Stopped);
    pipe.Write("\xFF\xFD");
    EXPECT_EQ(Read(), RunEnd::Closing);
}

TEST_F(BlockReaderTest, ControlCodesInsideARecordAreOrdinaryBytes) {
    pipe.Write(test::BlockOf("0\xFF\xFE\xFD,"));
    EXPECT_EQ(Read(), kRecord);
    EXPECT_EQ(record.Text(), "0\xFF\xFE\xFD,");
}

TEST_F(BlockReaderTest, PutsABlockTogetherThatWasSplitAnywhere) {
    const std::string block = test::BlockOf("038 906 019 FT,G001,F0,780,/min,");
    for (std::size_t split = 1; split < block.size(); ++split) {
        pipe.Write(block.substr(0, split));
        pipe.WriteNothing();
        pipe.Write(block.substr(split));
        ASSERT_EQ(Read(), kRecord) << split;
        ASSERT_EQ(record.Text(), "038 906 019 FT,G001,F0,780,/min,") << split;
    }
}

TEST_F(BlockReaderTest, AHalfBlockKeepsTheWindowAlive) {
    pipe.Write("0123");
    StopAfter(3000.0);
    EXPECT_EQ(Read(), RunEnd::Interrupted);
    EXPECT_EQ(pump.dispatches, 1 + 600);  // in the round, and every 5 ms of the wait for the rest
}

TEST_F(BlockReaderTest, TheNextRunFinishesABlockThatAStopCutInTwo) {
    const std::string block = test::BlockOf("038 906 019 FT,");
    pipe.Write(block.substr(0, 200));
    StopAfter(300.0);
    EXPECT_EQ(Read(), RunEnd::Interrupted);

    state.stopped = false;
    reader.Attach(5);
    pipe.Write(block.substr(200));
    EXPECT_EQ(Read(), kRecord);
    EXPECT_EQ(record.Text(), "038 906 019 FT,");
}

TEST_F(BlockReaderTest, ANewDescriptorStartsWithALeadByte) {
    pipe.Write("0123");
    StopAfter(300.0);
    EXPECT_EQ(Read(), RunEnd::Interrupted);

    state.stopped = false;
    reader.Attach(6);
    EXPECT_EQ(pipe.descriptor, 6);
    pipe.Write(test::BlockOf("new,"));
    EXPECT_EQ(Read(), kRecord);
    EXPECT_EQ(record.Text(), "new,");
}

TEST_F(BlockReaderTest, AClosedPipeEndsAsTheStopByteDoes) {
    pipe.closed = true;
    EXPECT_EQ(Read(), RunEnd::Stopped);
    pipe.Write("0123");
    EXPECT_EQ(Read(), RunEnd::Stopped);  // inside a block
    EXPECT_EQ(Read(), RunEnd::Stopped);  // and no byte of it is taken for a lead byte later
}

TEST_F(BlockReaderTest, EndsWhenStoppedWhileWaitingForTheLeadByte) {
    StopAfter(10.0);
    EXPECT_EQ(Read(), RunEnd::Interrupted);
}

TEST_F(BlockReaderTest, EndsWhenANewerRunWasStartedWhileItWaited) {
    pump.At(pump.NowMs(), [this] { ++state.generation; });
    EXPECT_EQ(Read(), RunEnd::Interrupted);
}

TEST_F(BlockReaderTest, TakesSeveralBlocksThatArrivedTogetherOneARound) {
    pipe.Write(test::BlockOf("one,") + test::BlockOf("two,") + "\xFE");
    EXPECT_EQ(Read(), kRecord);
    EXPECT_EQ(record.Text(), "one,");
    EXPECT_EQ(Read(), kRecord);
    EXPECT_EQ(record.Text(), "two,");
    EXPECT_EQ(Read(), RunEnd::Stopped);
}

}  // namespace
}  // namespace plotvane
