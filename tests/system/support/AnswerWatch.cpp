#include "tests/system/support/AnswerWatch.h"

#include <algorithm>
#include <cstdio>
#include <future>

namespace plotvane::test {

namespace {

using Clock = std::chrono::steady_clock;

constexpr double kPromptMs = 200.0;
constexpr double kHeldUpFactor = 3.0;
constexpr UINT kPatienceMs = 10'000;

void Ask(HWND window, std::chrono::milliseconds every, AnswerTimes& times, const std::stop_token& stop) {
    while (!stop.stop_requested()) {
        const auto asked = Clock::now();
        DWORD_PTR ignored = 0;
        ::SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, kPatienceMs, &ignored);
        const std::chrono::duration<double, std::milli> took = Clock::now() - asked;
        if (!::IsWindow(window)) return;  // closed meanwhile
        times.ms.push_back(took.count());
        std::this_thread::sleep_for(every);
    }
}

}  // namespace

double AnswerTimes::Median() const {
    if (ms.empty()) return 0.0;
    std::vector<double> sorted = ms;
    const auto middle = sorted.begin() + static_cast<std::ptrdiff_t>(sorted.size() / 2);
    std::nth_element(sorted.begin(), middle, sorted.end());
    return *middle;
}

double AnswerTimes::Slowest() const {
    return ms.empty() ? 0.0 : *std::max_element(ms.begin(), ms.end());
}

AnswerWatch::AnswerWatch(HWND window, std::chrono::milliseconds every) {
    std::promise<HWND> created;
    m_idleThread = std::jthread([&created] {
        created.set_value(::CreateWindowExW(0, L"Static", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                            ::GetModuleHandleW(nullptr), nullptr));
        MSG message;
        while (::GetMessageW(&message, nullptr, 0, 0) > 0) ::DispatchMessageW(&message);
    });
    m_idleWindow = created.get_future().get();
    m_idleAsker =
        std::jthread([this, every](const std::stop_token& stop) { Ask(m_idleWindow, every, m_idle, stop); });
    m_programAsker = std::jthread(
        [this, window, every](const std::stop_token& stop) { Ask(window, every, m_program, stop); });
}

void AnswerWatch::Stop() {
    if (!m_idleThread.joinable()) return;
    m_programAsker.request_stop();
    m_idleAsker.request_stop();
    m_programAsker.join();
    m_idleAsker.join();
    ::PostThreadMessageW(::GetWindowThreadProcessId(m_idleWindow, nullptr), WM_QUIT, 0, 0);
    m_idleThread.join();
}

double AnswerWatch::BoundMs() const {
    return kPromptMs + kHeldUpFactor * m_idle.Slowest();
}

std::string AnswerWatch::Figures() const {
    char text[200];
    std::snprintf(
        text, sizeof text,
        "%zu answers, median %.1f ms, slowest %.1f ms; of an idle window: median %.1f ms, slowest %.1f ms",
        m_program.ms.size(), m_program.Median(), m_program.Slowest(), m_idle.Median(), m_idle.Slowest());
    return text;
}

}  // namespace plotvane::test
