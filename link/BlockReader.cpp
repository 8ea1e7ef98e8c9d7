#include "link/BlockReader.h"

#include <algorithm>
#include <cmath>

namespace plotvane {
namespace {

constexpr double kRoundMs = 50.0;
constexpr int kHalfBlockMs = 5;  // until the pipe is asked for the rest of a block again

constexpr char kNothingNew = '\xFF';
constexpr char kHostStops = '\xFE';
constexpr char kHostCloses = '\xFD';

// A host that sends "nothing new" faster than the rounds must neither build a backlog nor block the window.
constexpr int kMaxIdleFillsPerRound = 64;

}  // namespace

void BlockReader::Attach(int descriptor) {
    if (descriptor != m_descriptor) Drop();
    m_descriptor = descriptor;
    m_pipe.Attach(descriptor);
}

std::optional<RunEnd> BlockReader::Read(RecordBuffer& record, const LoopRun& run) {
    do {
        WaitOutTheRound(run);
        if (run.Ended()) return RunEnd::Interrupted;
        if (!DropIdleBytes()) return RunEnd::Stopped;
    } while (Kept() == 0);

    if (m_bytes[m_begin] == kHostStops || m_bytes[m_begin] == kHostCloses) {
        return m_bytes[m_begin++] == kHostStops ? RunEnd::Stopped : RunEnd::Closing;
    }

    while (Kept() < RecordBuffer::kBlockSize) {
        const std::size_t before = Kept();
        if (!Fill()) return RunEnd::Stopped;
        if (Kept() > before) continue;
        m_pump.SleepAndDispatch(kHalfBlockMs);
        if (run.Ended()) return RunEnd::Interrupted;
    }
    std::copy_n(m_bytes.begin() + static_cast<std::ptrdiff_t>(m_begin), RecordBuffer::kBlockSize,
                record.Block().begin());
    m_begin += RecordBuffer::kBlockSize;
    return std::nullopt;
}

// Rounds follow one another without a gap. So neither the time that a record takes nor a late wake-up makes
// the pace slower than twenty blocks a second. After a longer delay the rounds start again from now. Messages
// are dispatched at least once in every round.
void BlockReader::WaitOutTheRound(const LoopRun& run) {
    const double roundEndsMs = m_roundBeganMs + kRoundMs;
    double leftMs = roundEndsMs - m_pump.NowMs();
    do {
        m_pump.SleepAndDispatch(static_cast<int>(std::clamp(std::ceil(leftMs), 0.0, kRoundMs)));
        leftMs = roundEndsMs - m_pump.NowMs();
    } while (leftMs > 0.0 && !run.Ended());
    m_roundBeganMs = -leftMs > kRoundMs ? m_pump.NowMs() : roundEndsMs;
}

// Drops all "nothing new" bytes that have arrived before anything else. False at the end of the stream.
bool BlockReader::DropIdleBytes() {
    for (int fills = 0;; ++fills) {
        while (Kept() > 0 && m_bytes[m_begin] == kNothingNew) ++m_begin;
        if (Kept() > 0 || fills == kMaxIdleFillsPerRound) return true;
        if (!Fill()) return false;
        if (Kept() == 0) return true;
    }
}

// Appends what has arrived to the bytes kept. False at the end of the stream; an unfinished block is then
// dropped, because the rest will never come.
bool BlockReader::Fill() {
    std::move(m_bytes.begin() + static_cast<std::ptrdiff_t>(m_begin),
              m_bytes.begin() + static_cast<std::ptrdiff_t>(m_end), m_bytes.begin());
    m_end -= m_begin;
    m_begin = 0;
    const int count = m_pipe.TryRead(std::span(m_bytes).subspan(m_end));
    if (count == HostPipe::kEndOfStream) {
        Drop();
        return false;
    }
    m_end += static_cast<std::size_t>(count);
    return true;
}

}  // namespace plotvane
