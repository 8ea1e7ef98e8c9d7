#include "link/WindowPump.h"

#include "framework/MessageLoop.h"

namespace plotvane {
namespace {

// Messages may come as fast as they are dispatched. After this long the data gets its turn.
constexpr double kLongestDispatchMs = 50.0;

double MsPerCount() {
    LARGE_INTEGER frequency;
    ::QueryPerformanceFrequency(&frequency);
    return 1000.0 / static_cast<double>(frequency.QuadPart);
}

}  // namespace

WindowPump::WindowPump(RunState& state) : m_state(state), m_msPerCount(MsPerCount()) {}

double WindowPump::NowMs() {
    LARGE_INTEGER count;
    ::QueryPerformanceCounter(&count);
    return static_cast<double>(count.QuadPart) * m_msPerCount;
}

void WindowPump::SleepAndDispatch(int ms) {
    if (ms > 0) {
        if (!m_timer) m_timer.emplace();
        // Without this flag the wait would ignore a message that a handler has peeked at and left in
        // the queue.
        const DWORD ended = ::MsgWaitForMultipleObjectsEx(0, nullptr, static_cast<DWORD>(ms), QS_ALLINPUT,
                                                          MWMO_INPUTAVAILABLE);
        if (ended == WAIT_TIMEOUT) return;  // no message came, and to ask again costs as much as the wait
    }
    DispatchWaiting();
}

void WindowPump::DispatchWaiting() {
    const std::uint32_t stops = m_state.stops;
    const double untilMs = NowMs() + kLongestDispatchMs;
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            m_state.stopped = true;
            ++m_state.stops;
            ::PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        HandleQueued(message);
        if (message.message == WM_TIMER) return;  // a timer comes when nothing else waits
        if (m_state.stops != stops || NowMs() > untilMs) return;
    }
}

}  // namespace plotvane
