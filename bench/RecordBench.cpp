// Measures what a record costs from the bytes of the pipe or of a log to slots, texts, traces and fuel
// figures: the whole program without its windows. Prints microseconds per record, as the median of several
// rounds, and the share of each step.
//
// record_bench LOG: plays that log as fast as it can and prints how much memory the process holds in the
// meantime.
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "link/BlockReader.h"
#include "link/RecordParser.h"
#include "plot/binding/TraceScaling.h"
#include "tests/support/Records.h"
#include "tests/support/WholeWay.h"
#include "tools/drives/DriveRecord.h"
#include "tools/drives/ScriptedDrive.h"
#include "tools/samples/SampleLogs.h"

namespace plotvane {
namespace {

constexpr int kRounds = 15;
constexpr int kRecords = 20'000;  // per round
constexpr int kWarmUp = 1000;
constexpr const char* kModule = "038 906 019 FT";

double NowUs() {
    using Microseconds = std::chrono::duration<double, std::micro>;
    return Microseconds(std::chrono::steady_clock::now().time_since_epoch()).count();
}

double MedianOfRounds(const std::function<double()>& round) {
    std::array<double, kRounds> figures;
    std::ranges::generate(figures, round);
    std::ranges::nth_element(figures, figures.begin() + kRounds / 2);
    return figures[kRounds / 2];
}

// Twelve values that change from one record to the next.
std::vector<std::string> Records(RecordForm form) {
    const ScriptedDrive drive;
    std::vector<std::string> records;
    for (int i = 0; i < kWarmUp; ++i)
        records.push_back(RecordOf(drive, drive.Seconds() * i / kWarmUp, form, kModule));
    return records;
}

std::vector<std::string> Blocks(RecordForm form) {
    std::vector<std::string> blocks;
    for (const std::string& record : Records(form)) blocks.push_back(test::BlockOf(record));
    return blocks;
}

// Measures from the end of the warm-up to the last sample that is certain to come.
class Stopwatch {
public:
    std::function<void(const TraceValues&)> OnSample() {
        return [this](const TraceValues&) {
            ++m_samples;
            if (m_samples == kWarmUp) m_beganUs = NowUs();
            if (m_samples == kWarmUp + kRecords) m_us = NowUs() - m_beganUs;
        };
    }
    double UsPerRecord() const { return m_us / kRecords; }

private:
    int m_samples = 0;
    double m_beganUs = 0.0;
    double m_us = 0.0;
};

using Meters = test::WholeWay::Meters;

double LiveUs(const std::vector<std::string>& blocks, Meters meters) {
    Stopwatch watch;
    test::EndlessPipe pipe(blocks, kWarmUp + kRecords);
    test::WholeWay way(pipe, meters, watch.OnSample());
    way.RunLive();
    return watch.UsPerRecord();
}

double ReplayUs(const std::string& log) {
    Stopwatch watch;
    test::ScriptedPipe noHost;
    test::WholeWay way(noHost, Meters::Closed, watch.OnSample());
    way.Replay(log);
    return watch.UsPerRecord();
}

std::string LongLog() {
    const std::string drive = ClassicLog(ScriptedDrive(), {.from = 0, .to = 240}, 3);
    constexpr int kHeaderLines = 7;
    std::size_t rowsBegin = 0;
    for (int line = 0; line < kHeaderLines; ++line) rowsBegin = drive.find('\n', rowsBegin) + 1;
    const std::string rows = drive.substr(rowsBegin);
    std::string log = drive;
    for (auto count = std::ranges::count(rows, '\n'); count <= kWarmUp + kRecords;
         count += std::ranges::count(rows, '\n')) {
        log += rows;
    }
    return log;
}

double BlocksUs(const std::vector<std::string>& blocks) {
    RunState state;
    state.stopped = false;
    const LoopRun run(state);
    test::EndlessPipe pipe(blocks, kRecords);
    test::FakePump pump;
    BlockReader reader(pipe, pump);
    RecordBuffer record;
    const double began = NowUs();
    int count = 0;
    while (!reader.Read(record, run)) ++count;
    return count == kRecords ? (NowUs() - began) / kRecords : -1;
}

// Slots, tables and views as in the program, without the loop.
struct Bound {
    test::TempFolder folder;
    ProgramData data{folder.Path()};
    test::FakeChart chart;
    test::FakePanel panel;
    test::FakeMeters meters;
    Sample sample{data.state, data.prefs, data.slots, data.defaults, data.ranges};
    Views views{chart, panel, meters};
    SlotSelection selection{sample, panel};
    FuelFigures fuel{{"MPG", "L/100km", "Gal. per Hour"}};
    TraceScaling scaling{sample, views, selection};
};

double ParsedUs(const std::vector<std::string>& records, bool bind) {
    Bound bound;
    if (bound.data.ranges.LoadModuleScaling("038-906-019-FT.SCL") != ModuleLoad::Loaded) return -1;
    const std::size_t position = std::string_view(kModule).size() + 1;
    const double began = NowUs();
    for (std::size_t i = 0; i < kRecords; ++i) {
        if (!ParseRecord(records[i % records.size()], position, bound.data.slots, bound.data.state))
            return -1;
        if (!bind) continue;
        bound.fuel.UpdateFuel(bound.sample, bound.views);
        bound.scaling.UpdateSlots();
    }
    return (NowUs() - began) / kRecords;
}

double TracesUs() {
    Bound bound;
    test::LineChart chart(bound.data.prefs, bound.data.state, bound.data.slots);
    chart.onSample = [](const TraceValues&) {};
    TraceValues values{};
    const double began = NowUs();
    for (int i = 0; i < kRecords; ++i) {
        values.fill(i % 100);
        chart.AppendPoints(values);
    }
    return (NowUs() - began) / kRecords;
}

// The private memory of this process; 0 if the system does not report it in this way.
long PrivateKilobytes() {
    constexpr long kKilobytesPerPage = 4;
    long size = 0;
    long resident = 0;
    long shared = 0;
    std::ifstream("/proc/self/statm") >> size >> resident >> shared;
    return (resident - shared) * kKilobytesPerPage;
}

void Play(const char* log) {
    constexpr int kRowsPerLook = 1'000'000;
    const std::filesystem::path path = std::filesystem::absolute(log);
    int rows = 0;
    std::printf("private memory");
    test::ScriptedPipe noHost;
    test::WholeWay way(noHost, Meters::Closed, [&](const TraceValues&) {
        if (rows++ % kRowsPerLook == kWarmUp) std::printf(" %ld", PrivateKilobytes());
    });
    const double began = NowUs();
    way.ReplayFile(path);
    const double us = NowUs() - began;
    std::printf(" KB, every million rows; %d rows in %.1f s, %.2f us each\n", rows, us / 1e6, us / rows);
}

void Print(const char* what, double us) {
    std::printf("  %-58s %6.2f us\n", what, us);
    std::fflush(stdout);
}

void Run() {
    const auto records = Records(RecordForm::Normal);
    const auto blocks = Blocks(RecordForm::Normal);
    const auto tenChannels = Blocks(RecordForm::TenChannels);
    const std::string log = LongLog();

    std::printf("a record from bytes to slots, texts, traces and fuel figures; median of %d rounds of %d\n",
                kRounds, kRecords);
    Print("live, three groups of four", MedianOfRounds([&] { return LiveUs(blocks, Meters::Closed); }));
    Print("the same with every meter open", MedianOfRounds([&] { return LiveUs(blocks, Meters::Open); }));
    Print("live, ten channels", MedianOfRounds([&] { return LiveUs(tenChannels, Meters::Closed); }));
    Print("a row of a classic log", MedianOfRounds([&] { return ReplayUs(log); }));
    std::printf("parts of a live record of three groups\n");
    Print("the block from the pipe", MedianOfRounds([&] { return BlocksUs(blocks); }));
    const double parsed = MedianOfRounds([&] { return ParsedUs(records, false); });
    Print("parsing", parsed);
    Print("ranges, texts and fuel figures", MedianOfRounds([&] { return ParsedUs(records, true); }) - parsed);
    Print("twelve traces, down to the lines", MedianOfRounds(TracesUs));
}

}  // namespace
}  // namespace plotvane

int main(int count, char** arguments) {
    if (count == 2) {
        plotvane::Play(arguments[1]);
    } else {
        plotvane::Run();
    }
    return 0;
}
