#include "link/WindowPump.h"

#include <gtest/gtest.h>

#include <functional>
#include <thread>

#include "tests/windows/framework/TestWnd.h"

namespace plotvane {
namespace {

constexpr int kLongMs = 60'000;  // no test here waits for its end
constexpr UINT kMessage = WM_APP + 1;

class Listener : public CWnd {
public:
    std::function<void()> onMessage = [] {};
    int heard = 0;
    std::function<bool(MSG&)> before = [](MSG&) { return false; };

    bool PreTranslateMessage(MSG& message) override { return before(message); }

private:
    LRESULT OnMessage(WPARAM, LPARAM) {
        ++heard;
        onMessage();
        return 0;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Listener, CWnd)
    ON_MESSAGE(kMessage, OnMessage)
    ON_MESSAGE(WM_TIMER, OnMessage)
END_MESSAGE_MAP()

class WindowPumpTest : public testing::Test {
protected:
    WindowPumpTest() {
        state.stopped = false;
        EXPECT_TRUE(test::CreateHidden(window));
        test::DispatchAll();
    }

    // How long the pump took, in milliseconds. With no messages that is at most one more than it slept.
    double Pump(int ms) {
        const double began = pump.NowMs();
        pump.SleepAndDispatch(ms);
        return pump.NowMs() - began;
    }

    RunState state;
    WindowPump pump{state};
    Listener window;
};

TEST_F(WindowPumpTest, WithoutAMessageSleepsTheWholeTime) {
    EXPECT_GE(Pump(30), 29.0);  // the two clocks may be a tick apart
}

TEST_F(WindowPumpTest, AMessageThatIsWaitingIsDispatchedAtOnce) {
    ::PostMessageW(window.m_hWnd, kMessage, 0, 0);
    EXPECT_LT(Pump(kLongMs), kLongMs / 2);
    EXPECT_EQ(window.heard, 1);
}

TEST_F(WindowPumpTest, AMessageThatWasSeenAndLeftInTheQueueIsDispatchedAtOnce) {
    ::PostMessageW(window.m_hWnd, kMessage, 0, 0);
    MSG seen;
    ASSERT_TRUE(::PeekMessageW(&seen, nullptr, 0, 0, PM_NOREMOVE));
    EXPECT_LT(Pump(kLongMs), kLongMs / 2);
    EXPECT_EQ(window.heard, 1);
}

TEST_F(WindowPumpTest, AMessageThatComesEndsTheSleep) {
    std::thread other([this] {
        ::Sleep(20);
        ::PostMessageW(window.m_hWnd, kMessage, 0, 0);
    });
    EXPECT_LT(Pump(kLongMs), kLongMs / 2);
    EXPECT_EQ(window.heard, 1);
    other.join();
}

TEST_F(WindowPumpTest, AMessageThatIsSentFromOutsideEndsTheSleepToo) {
    std::thread other([this] {
        ::Sleep(20);
        window.SendMessage(kMessage);
    });
    EXPECT_LT(Pump(kLongMs), kLongMs / 2);
    EXPECT_EQ(window.heard, 1);
    other.join();
}

TEST_F(WindowPumpTest, AWindowMayTakeAMessageBeforeItIsDispatched) {
    int asked = 0;
    window.before = [&](MSG& message) { return message.message == kMessage && ++asked == 1; };
    for (int message = 0; message < 2; ++message) ::PostMessageW(window.m_hWnd, kMessage, 0, 0);
    pump.SleepAndDispatch(0);
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(window.heard, 1);
}

TEST_F(WindowPumpTest, WhatAHandlerPostsIsDispatchedWithIt) {
    window.onMessage = [this] {
        if (window.heard < 3) ::PostMessageW(window.m_hWnd, kMessage, 0, 0);
    };
    ::PostMessageW(window.m_hWnd, kMessage, 0, 0);
    pump.SleepAndDispatch(0);
    EXPECT_EQ(window.heard, 3);
}

TEST_F(WindowPumpTest, ATimerEndsTheSleep) {
    window.SetTimer(1, 20);
    EXPECT_LT(Pump(kLongMs), kLongMs / 2);
    EXPECT_EQ(window.heard, 1);
}

TEST_F(WindowPumpTest, WhatATimerPostsIsDispatchedInTheNextCallWithoutASleep) {
    window.SetTimer(1, 20);
    window.onMessage = [this] {
        if (window.heard > 1) return;
        window.KillTimer(1);
        ::PostMessageW(window.m_hWnd, kMessage, 0, 0);
    };
    EXPECT_LT(Pump(kLongMs), kLongMs / 2);
    EXPECT_LT(Pump(kLongMs), kLongMs / 2);
    EXPECT_EQ(window.heard, 2);
}

// Timers come last of all messages.
TEST_F(WindowPumpTest, ATimerThatIsDueDoesNotHoldAMessageUp) {
    window.SetTimer(1, 20);
    ::Sleep(60);
    ::PostMessageW(window.m_hWnd, kMessage, 0, 0);
    pump.SleepAndDispatch(0);
    EXPECT_EQ(window.heard, 2);
}

// For example from a window that posts a message for each that it gets, or from another program.
TEST_F(WindowPumpTest, MessagesWithoutAnEndDoNotHoldTheDataUp) {
    constexpr int kMany = 10'000'000;
    window.onMessage = [this] {
        if (window.heard < kMany) ::PostMessageW(window.m_hWnd, kMessage, 0, 0);
    };
    ::PostMessageW(window.m_hWnd, kMessage, 0, 0);
    pump.SleepAndDispatch(0);
    EXPECT_GT(window.heard, 1);
    EXPECT_LT(window.heard, kMany);
    window.onMessage = [] {};
    test::DispatchAll();
}

// The run that has just ended must leave the stack before another one begins.
TEST_F(WindowPumpTest, WhatComesAfterAStopWaitsForTheNextCall) {
    window.onMessage = [this] {
        if (window.heard == 2) ++state.stops;
    };
    for (int message = 0; message < 4; ++message) ::PostMessageW(window.m_hWnd, kMessage, 0, 0);
    pump.SleepAndDispatch(0);
    EXPECT_EQ(window.heard, 2);
    pump.SleepAndDispatch(0);
    EXPECT_EQ(window.heard, 4);
}

TEST_F(WindowPumpTest, ARequestToQuitStopsTheRunAndGoesOnToThePumpOutside) {
    ::PostQuitMessage(7);
    EXPECT_LT(Pump(kLongMs), kLongMs / 2);
    EXPECT_TRUE(state.stopped);

    MSG message;
    ASSERT_TRUE(::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(message.wParam, 7u);
}

TEST_F(WindowPumpTest, MessagesInFrontOfARequestToQuitAreStillDispatched) {
    ::PostMessageW(window.m_hWnd, kMessage, 0, 0);
    ::PostQuitMessage(0);
    pump.SleepAndDispatch(0);
    EXPECT_EQ(window.heard, 1);
    EXPECT_TRUE(state.stopped);
    MSG message;
    EXPECT_TRUE(::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
}

}  // namespace
}  // namespace plotvane
