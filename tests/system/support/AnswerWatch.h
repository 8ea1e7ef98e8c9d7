#pragma once

#include <windows.h>

#include <chrono>
#include <stop_token>
#include <string>
#include <thread>
#include <vector>

namespace plotvane::test {

// How long a window took to answer messages that do nothing, in milliseconds.
struct AnswerTimes {
    std::vector<double> ms;

    double Median() const;  // 0 if it was never asked
    double Slowest() const;
};

// Asks a window of the program again and again for as long as this object watches, and beside it a window
// that has nothing to do. A machine that is busy with other work holds up both: only what the program takes
// beyond that is its own. So each answer has to come within 200 ms, to which three times the slowest answer
// of the idle window is added; on a machine with time to spare those are a few milliseconds. (Three: between
// question and answer the program has to be given the processor more often than a window that does nothing.)
class AnswerWatch {
public:
    // Null: only the idle window is asked.
    explicit AnswerWatch(HWND window, std::chrono::milliseconds every = std::chrono::milliseconds(10));
    ~AnswerWatch() { Stop(); }
    AnswerWatch(const AnswerWatch&) = delete;
    AnswerWatch& operator=(const AnswerWatch&) = delete;

    // Ends the asking. What follows is for afterwards.
    void Stop();

    const AnswerTimes& Program() const { return m_program; }
    const AnswerTimes& Idle() const { return m_idle; }
    double BoundMs() const;
    // Both, in words.
    std::string Figures() const;
    bool WasPrompt() const { return !m_program.ms.empty() && m_program.Slowest() <= BoundMs(); }

private:
    HWND m_idleWindow = nullptr;
    AnswerTimes m_program;
    AnswerTimes m_idle;
    // In this order they end: who asks before who answers.
    std::jthread m_idleThread;
    std::jthread m_idleAsker;
    std::jthread m_programAsker;
};

}  // namespace plotvane::test
