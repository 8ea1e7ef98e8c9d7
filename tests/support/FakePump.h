#pragma once

#include <algorithm>
#include <deque>
#include <functional>
#include <utility>

#include "model/MessagePump.h"

namespace plotvane::test {

// A clock that moves only while somebody waits. Handlers run from the pump at their times, as the user's
// clicks do. Like a message, a handler ends the sleep.
class FakePump : public MessagePump {
public:
    double NowMs() override { return m_nowMs; }

    void SleepAndDispatch(int ms) override {
        ++dispatches;
        if (onDispatch) onDispatch();
        const double awakeMs = m_nowMs + ms;
        m_nowMs = m_posted.empty() ? awakeMs : std::clamp(m_posted.front().first, m_nowMs, awakeMs);
        while (!m_posted.empty() && m_posted.front().first <= m_nowMs) {
            const auto handler = std::move(m_posted.front().second);
            m_posted.pop_front();
            handler();
        }
    }

    // Call it in the order of the times.
    void At(double ms, std::function<void()> handler) { m_posted.emplace_back(ms, std::move(handler)); }

    void Pass(double ms) { m_nowMs += ms; }

    int dispatches = 0;
    std::function<void()> onDispatch;  // once in each call, before the handlers whose time has come

private:
    double m_nowMs = 1000.0;
    std::deque<std::pair<double, std::function<void()>>> m_posted;
};

}  // namespace plotvane::test
