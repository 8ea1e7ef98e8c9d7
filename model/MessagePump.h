#pragma once

namespace plotvane {

// How portable code waits on the user-interface thread: by the clock, with the window alive.
struct MessagePump {
    virtual ~MessagePump() = default;

    // Milliseconds from a fixed moment, with a resolution of at least one millisecond; never goes back.
    virtual double NowMs() = 0;

    // Dispatches every message that is waiting, then sleeps for up to `ms`; a new message may end the sleep
    // early. Any handler may run inside: afterwards every flag of the run state has to be looked at anew.
    virtual void DispatchAndSleep(int ms) = 0;
};

}  // namespace plotvane
