#pragma once

namespace plotvane {

// Keeps the machine from going to sleep and from turning its display off, which holds off the screen lock
// too. Windows forgets it when the program ends, however it ends.
class SleepBlocker {
public:
    SleepBlocker() = default;
    ~SleepBlocker() { Set(false); }
    SleepBlocker(const SleepBlocker&) = delete;
    SleepBlocker& operator=(const SleepBlocker&) = delete;

    // Acts for the calling thread: always call it from the same one.
    void Set(bool on);

private:
    bool m_isOn = false;
};

}  // namespace plotvane
