#pragma once

namespace plotvane {

// How portable code waits on the user-interface thread: by the clock, with the window alive.
struct MessagePump {
    virtual ~MessagePump() = default;

    // Milliseconds from a fixed moment, with a resolution of at least one millisecond; never goes back.
    virtual double NowMs() = 0;

    // Sleeps for up to `ms`, not at all while a message is waiting and no longer than until one comes, then
    // dispatches the messages that wait. Where these never end, or one of them asks for a stop, the rest
    // waits for the next call. Any handler may run inside: afterwards every flag of the run state has to be
    // looked at again. In this order, what a handler asks for never waits for the end of a sleep.
    virtual void SleepAndDispatch(int ms) = 0;
};

}  // namespace plotvane
