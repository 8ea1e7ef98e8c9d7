#include <algorithm>
#include <optional>
#include <utility>

#include "fuzz/Inputs.h"
#include "fuzz/Slots.h"
#include "fuzz/Targets.h"
#include "link/BlockReader.h"
#include "link/RecordParser.h"
#include "tests/support/Promise.h"

namespace plotvane::fuzz {

using test::Require;

namespace {

constexpr int kStopNow = 255;  // a cut of this size: the user stops the run and then starts the next one
constexpr int kMaxSmallCut = 127;
constexpr int kLargeCutUnit = 33;  // the largest cut, 127 of these, is just more than the reader's buffer

// Delivers the stream in portions, one for each read. A cut of up to 127 is a number of bytes, a larger one a
// number of units; 0 means that nothing has arrived. The pipe closes after the stream.
class CutPipe : public HostPipe {
public:
    CutPipe(std::string_view stream, Bytes cuts) : m_stream(stream), m_cuts(cuts) {}

    void Attach(int) override {}

    int TryRead(std::span<char> buffer) override {
        Require(!buffer.empty(), "a full buffer is never read into");
        if (m_stream.empty()) return kEndOfStream;
        const std::size_t count = std::min({NextPortion(), buffer.size(), m_stream.size()});
        std::copy_n(m_stream.begin(), count, buffer.begin());
        m_stream.remove_prefix(count);
        return static_cast<int>(count);
    }

    bool TakeStop() { return std::exchange(m_stop, false); }

private:
    std::size_t NextPortion() {
        if (m_next == m_cuts.size()) return m_stream.size();
        const int cut = m_cuts[m_next++];
        m_stop = cut == kStopNow;
        if (m_stop) return 0;
        return static_cast<std::size_t>(cut <= kMaxSmallCut ? cut : (cut - kMaxSmallCut) * kLargeCutUnit);
    }

    std::string_view m_stream;
    Bytes m_cuts;
    std::size_t m_next = 0;
    bool m_stop = false;
};

class StoppingPump : public MessagePump {
public:
    StoppingPump(CutPipe& pipe, RunState& state) : m_pipe(pipe), m_state(state) {}

    double NowMs() override { return m_nowMs; }
    void SleepAndDispatch(int ms) override {
        Require(ms >= 0 && ms <= 50, "no sleep is longer than a round");
        ++dispatches;
        m_nowMs += ms;
        if (m_pipe.TakeStop()) m_state.stopped = true;
    }

    int dispatches = 0;

private:
    CutPipe& m_pipe;
    RunState& m_state;
    double m_nowMs = 1000.0;
};

// The next block that a reader must find in the stream, in whatever portions it arrives.
struct Expected {
    std::optional<RunEnd> end = RunEnd::Stopped;  // nothing: a record
    std::string_view bytes;                       // of a record
    bool hostGone = false;
};

Expected TakeExpected(std::string_view& stream) {
    stream.remove_prefix(std::min(stream.find_first_not_of('\xFF'), stream.size()));
    if (stream.starts_with('\xFE') || stream.starts_with('\xFD')) {
        const RunEnd end = stream.front() == '\xFE' ? RunEnd::Stopped : RunEnd::Closing;
        stream.remove_prefix(1);
        return {.end = end, .bytes = {}};
    }
    if (stream.size() < RecordBuffer::kBlockSize) return {.bytes = {}, .hostGone = true};
    const auto bytes = stream.substr(0, RecordBuffer::kBlockSize);
    stream.remove_prefix(bytes.size());
    return {.end = std::nullopt, .bytes = bytes};
}

// Reads a stream to its end, run by run, as the loop does, and compares each block with the stream.
class StreamReader {
public:
    StreamReader(std::string_view stream, Bytes cuts) : m_expected(stream), m_pipe(stream, cuts) {}

    void ReadToTheEnd() {
        StartRun();
        while (true) {
            const int dispatchesBefore = m_pump.dispatches;
            const auto end = m_reader.Read(m_record, *m_run);
            Require(m_pump.dispatches > dispatchesBefore, "every round dispatches messages");
            if (end == RunEnd::Interrupted) {
                Require(m_state.stopped, "a run ends because it was stopped");
                StartRun();
                continue;
            }
            RequireRoundsOf50Ms();
            const Expected expected = TakeExpected(m_expected);
            Require(end == expected.end, "a block is what its lead byte says");
            if (expected.hostGone) return;
            if (end) {
                StartRun();
                continue;
            }
            Require(std::ranges::equal(m_record.Block(), expected.bytes),
                    "a record arrives as it was written");
            const auto text = m_record.Text();
            ParseRecord(text, std::min(text.find(','), text.size()), m_slots, m_state);
            RequireSaneSlots(m_slots);
        }
    }

private:
    void StartRun() {
        constexpr int kDescriptor = 5;
        m_state.stopped = false;
        ++m_state.generation;
        m_reader.Attach(kDescriptor);
        m_run.emplace(m_state);
        m_rounds = 0;
        m_runBeganMs = m_pump.NowMs();
    }

    // A run may begin late in a round, and one round may make up for the time lost in the one before.
    void RequireRoundsOf50Ms() {
        constexpr double kRoundMs = 50.0;
        ++m_rounds;
        Require(m_pump.NowMs() - m_runBeganMs >= kRoundMs * (m_rounds - 2), "a block takes a round");
    }

    std::string_view m_expected;
    RunState m_state;
    CutPipe m_pipe;
    StoppingPump m_pump{m_pipe, m_state};
    BlockReader m_reader{m_pipe, m_pump};
    RecordBuffer m_record;
    SlotTable m_slots;
    std::optional<LoopRun> m_run;
    int m_rounds = 0;
    double m_runBeganMs = 0.0;
};

}  // namespace

// The first byte is the number of cuts that follow it; the rest is what the host writes before it dies.
int FuzzPipe(Bytes input) {
    if (input.empty()) return 0;
    const std::size_t cutCount = std::min<std::size_t>(input.front(), input.size() - 1);
    StreamReader(AsText(input.subspan(1 + cutCount)), input.subspan(1, cutCount)).ReadToTheEnd();
    return 0;
}

}  // namespace plotvane::fuzz
