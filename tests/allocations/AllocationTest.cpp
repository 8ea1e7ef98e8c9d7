#include <gtest/gtest.h>

#include <algorithm>
#include <new>
#include <string>
#include <vector>

#include "tests/allocations/CountedNew.h"
#include "tests/support/Records.h"
#include "tests/support/WholeWay.h"
#include "tools/drives/DriveRecord.h"
#include "tools/drives/ScriptedDrive.h"
#include "tools/samples/SampleLogs.h"

// Once every text has grown as long as it gets, a record allocates nothing. A thousand records warm the whole
// portable way up, and the allocations of the next thousand are counted.
namespace plotvane {
namespace {

constexpr int kRecords = 1000;

// Counts the allocations between sample kRecords, when everything is warm, and sample 2 * kRecords.
class AllocationsOfRecords {
public:
    std::function<void(const TraceValues&)> OnSample() {
        return [this](const TraceValues&) {
            ++samples;
            if (samples == kRecords) m_before = test::NewCount();
            if (samples == 2 * kRecords) allocations = test::NewCount() - m_before;
        };
    }

    int samples = 0;
    std::size_t allocations = 0;

private:
    std::size_t m_before = 0;
};

// The drive twice over, the same records each time.
std::vector<std::string> Blocks(RecordForm form) {
    const ScriptedDrive drive;
    std::vector<std::string> blocks;
    for (int i = 0; i < kRecords; ++i) {
        const double seconds = drive.Seconds() * i / kRecords;
        blocks.push_back(test::BlockOf(RecordOf(drive, seconds, form, "038 906 019 FT")));
    }
    return blocks;
}

void ExpectNothingAllocatedLive(RecordForm form) {
    AllocationsOfRecords counter;
    test::EndlessPipe pipe(Blocks(form), 2 * kRecords);
    test::WholeWay way(pipe, test::WholeWay::Meters::Open, counter.OnSample());
    way.RunLive();
    ASSERT_EQ(counter.samples, 2 * kRecords);
    EXPECT_EQ(counter.allocations, 0u);
}

// The header of a log, then its rows repeated until there are a few more than 2,000. A replay does not wait
// where the time steps back.
std::string LogOfManyRows(const std::string& log, int headerLines) {
    std::size_t rowsBegin = 0;
    for (int line = 0; line < headerLines; ++line) rowsBegin = log.find('\n', rowsBegin) + 1;
    const std::string rows = log.substr(rowsBegin);
    std::string many = log;
    for (auto count = std::ranges::count(rows, '\n'); count < 2 * kRecords + 10;
         count += std::ranges::count(rows, '\n')) {
        many += rows;
    }
    return many;
}

void ExpectNothingAllocatedInReplay(const std::string& log) {
    AllocationsOfRecords counter;
    test::ScriptedPipe noHost;
    test::WholeWay way(noHost, test::WholeWay::Meters::Open, counter.OnSample());
    way.Replay(log);
    ASSERT_GE(counter.samples, 2 * kRecords);
    EXPECT_EQ(counter.allocations, 0u);
}

TEST(AllocationsPerRecord, TheCountSeesWhatAStringAllocates) {
    std::vector<std::string> texts;
    const std::size_t before = test::NewCount();
    texts.emplace_back(100, 'x');
    EXPECT_EQ(test::NewCount() - before, 2u) << "one for the vector, one for " << texts.front();
}

// Calls the operators by name, because a compiler may leave out a `new` together with its `delete`. If two
// forms did not belong together, the sanitizer would stop the test.
TEST(AllocationsPerRecord, TheCountSeesEachForm) {
    const std::size_t before = test::NewCount();
    ::operator delete(::operator new(8));
    ::operator delete[](::operator new[](8));
    ::operator delete(::operator new(8, std::nothrow));
    ::operator delete[](::operator new[](8, std::nothrow));
    EXPECT_EQ(test::NewCount() - before, 4u);
}

TEST(AllocationsPerRecord, NoneForLiveGroups) {
    ExpectNothingAllocatedLive(RecordForm::Normal);
}

TEST(AllocationsPerRecord, NoneForLiveTenChannelRecords) {
    ExpectNothingAllocatedLive(RecordForm::TenChannels);
}

TEST(AllocationsPerRecord, NoneForLiveIdentifiers) {
    ExpectNothingAllocatedLive(RecordForm::ObdPid);
}

constexpr LogSpan kWholeDrive{.from = 0, .to = 240};

TEST(AllocationsPerRecord, NoneInAClassicLog) {
    ExpectNothingAllocatedInReplay(LogOfManyRows(ClassicLog(ScriptedDrive(), kWholeDrive, 3), 7));
}

TEST(AllocationsPerRecord, NoneInALogOfTenChannels) {
    ExpectNothingAllocatedInReplay(LogOfManyRows(TenChannelLog(ScriptedDrive(), kWholeDrive), 7));
}

TEST(AllocationsPerRecord, NoneInAnAdvancedLog) {
    ExpectNothingAllocatedInReplay(LogOfManyRows(AdvancedLog(ScriptedDrive(), kWholeDrive), 7));
}

TEST(AllocationsPerRecord, NoneInALogOfIdentifiers) {
    ExpectNothingAllocatedInReplay(LogOfManyRows(ObdLog(ScriptedDrive(), kWholeDrive), 6));
}

}  // namespace
}  // namespace plotvane
