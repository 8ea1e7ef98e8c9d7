#include "tests/support/system/AnswerWatch.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>

namespace plotvane::test {

namespace {

using Clock = std::chrono::steady_clock;

constexpr double kPromptMs = 200.0;
constexpr UINT kPatienceMs = 10'000;
// The work consists of pieces of about half a millisecond. They are so short that even on the busiest machine
// at least one of them runs without interruption.
constexpr int kPieces = 20;
constexpr std::uint32_t kPieceTurns = 200'000;
// The pause between two runs of the work, in multiples of the pause between two questions.
constexpr int kPauseFactor = 20;

double Since(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

void DoPiece() {
    volatile std::uint32_t number = 1;
    for (std::uint32_t turn = 0; turn < kPieceTurns; ++turn) number = number * 1664525U + 1013904223U;
}

}  // namespace

AnswerWatch::AnswerWatch(HWND window, std::chrono::milliseconds every) {
    m_worker = std::jthread([this, every](const std::stop_token& stop) { Work(every * kPauseFactor, stop); });
    if (!window) return;
    m_asker = std::jthread([this, window, every](const std::stop_token& stop) { Ask(window, every, stop); });
}

void AnswerWatch::Ask(HWND window, std::chrono::milliseconds every, const std::stop_token& stop) {
    for (bool again = true; again; again = !stop.stop_requested()) {
        const auto asked = Clock::now();
        DWORD_PTR ignored = 0;
        ::SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, kPatienceMs, &ignored);
        const double took = Since(asked);
        if (!::IsWindow(window)) return;  // closed in the meantime
        m_answersMs.push_back(took);
        std::this_thread::sleep_for(every);
    }
}

void AnswerWatch::Work(std::chrono::milliseconds pause, const std::stop_token& stop) {
    for (bool again = true; again; again = !stop.stop_requested()) {
        const auto began = Clock::now();
        for (int piece = 0; piece < kPieces; ++piece) {
            const auto pieceBegan = Clock::now();
            DoPiece();
            const double took = Since(pieceBegan);
            if (m_fastestPieceMs == 0.0 || took < m_fastestPieceMs) m_fastestPieceMs = took;
        }
        m_slowestWorkMs = std::max(m_slowestWorkMs, Since(began));
        for (const auto end = Clock::now() + pause; !stop.stop_requested() && Clock::now() < end;)
            ::Sleep(10);
    }
}

void AnswerWatch::Stop() {
    m_asker = {};
    m_worker = {};
}

double AnswerWatch::Stretch() const {
    return std::max(1.0, m_slowestWorkMs / (kPieces * m_fastestPieceMs));
}

double AnswerWatch::BoundMs() const {
    return kPromptMs * Stretch();
}

double AnswerWatch::MedianMs() const {
    if (m_answersMs.empty()) return 0.0;
    std::vector<double> sorted = m_answersMs;
    const auto middle = sorted.begin() + static_cast<std::ptrdiff_t>(sorted.size() / 2);
    std::nth_element(sorted.begin(), middle, sorted.end());
    return *middle;
}

double AnswerWatch::SlowestMs() const {
    return m_answersMs.empty() ? 0.0 : *std::max_element(m_answersMs.begin(), m_answersMs.end());
}

std::string AnswerWatch::Figures() const {
    char text[200];
    std::snprintf(
        text, sizeof text,
        "%zu answers, median %.1f ms, slowest %.1f ms; the work took up to %.1f times its usual time",
        m_answersMs.size(), MedianMs(), SlowestMs(), Stretch());
    return text;
}

}  // namespace plotvane::test
