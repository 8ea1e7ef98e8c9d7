#pragma once

#include <windows.h>

#include <chrono>
#include <stop_token>
#include <string>
#include <thread>
#include <vector>

namespace plotvane::test {

// Asks a window of the program repeatedly, at least once, for as long as this object watches. On an idle
// machine each answer must come within 200 ms. On a busy machine everything takes longer, so a thread does a
// fixed piece of work at the same time and measures its slowest run. If that took three times as long as
// undisturbed, an answer may take three times as long too. On an idle machine the factor is close to 1.
class AnswerWatch {
public:
    // With a null window, this only does the work and asks nothing.
    explicit AnswerWatch(HWND window, std::chrono::milliseconds every = std::chrono::milliseconds(10));
    ~AnswerWatch() { Stop(); }
    AnswerWatch(const AnswerWatch&) = delete;
    AnswerWatch& operator=(const AnswerWatch&) = delete;

    // Ends the asking. Call it before the functions below.
    void Stop();

    // The time of the slowest run of the work, as a multiple of its undisturbed time: 1 on an idle machine.
    double Stretch() const;
    double BoundMs() const;
    double MedianMs() const;
    double SlowestMs() const;
    bool WasPrompt() const { return !m_answersMs.empty() && SlowestMs() <= BoundMs(); }
    // All figures as text.
    std::string Figures() const;

private:
    void Ask(HWND window, std::chrono::milliseconds every, const std::stop_token& stop);
    void Work(std::chrono::milliseconds pause, const std::stop_token& stop);

    std::vector<double> m_answersMs;
    double m_fastestPieceMs = 0.0;  // undisturbed
    double m_slowestWorkMs = 0.0;
    std::jthread m_worker;
    std::jthread m_asker;
};

}  // namespace plotvane::test
