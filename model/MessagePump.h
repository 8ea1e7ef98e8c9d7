#pragma once

namespace plotvane {

// How portable code waits on the user-interface thread: by the clock, with the window alive.
struct MessagePump {
    virtual ~MessagePump() = default;

    // Milliseconds from a fixed moment, with a resolution of at least one millisecond; never goes back.
    virtual double NowMs() = 0;

    // Sleeps for up to `ms`, but only until a message comes, then dispatches the messages that wait. If these
    // never end, or one of them asks for a stop, the rest waits for the next call. So does what a timer's
    // handler posts, and then the next call does not sleep. Any handler may run inside, so the caller must
    // look at every flag of the run state again. Dispatching comes last, so that the caller never sleeps
    // before it sees what a handler has asked for.
    virtual void SleepAndDispatch(int ms) = 0;
};

}  // namespace plotvane
