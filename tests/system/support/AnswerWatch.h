#pragma once

#include <windows.h>

#include <chrono>
#include <stop_token>
#include <string>
#include <thread>
#include <vector>

namespace plotvane::test {

// Asks a window of the program again and again for as long as this object watches, once at least. Each answer
// has to come within 200 ms, of a machine that has time for it. Where others work too, everything takes a
// multiple of its time, so a piece of work that is always the same is done beside the asking: by as much as
// its slowest run took longer than it would by itself, the answers may too. On a machine with time to spare
// that is nearly nothing.
class AnswerWatch {
public:
    // With null for the window nothing is asked, only the work is done.
    explicit AnswerWatch(HWND window, std::chrono::milliseconds every = std::chrono::milliseconds(10));
    ~AnswerWatch() { Stop(); }
    AnswerWatch(const AnswerWatch&) = delete;
    AnswerWatch& operator=(const AnswerWatch&) = delete;

    // Ends the asking. What follows is for afterwards.
    void Stop();

    // How many times as long as by itself the work took, at its slowest: 1 on a machine of its own.
    double Stretch() const;
    double BoundMs() const;
    double MedianMs() const;
    double SlowestMs() const;
    bool WasPrompt() const { return !m_answersMs.empty() && SlowestMs() <= BoundMs(); }
    // All of it, in words.
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
