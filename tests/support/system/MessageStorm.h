#pragma once

#include <random>
#include <vector>

#include "tests/support/system/RemoteWindow.h"

namespace plotvane::test {

// Posts random messages to the main window and its controls: commands of every control, items of the system
// menu, timers, keys, the mouse, and notices of the system, in any order and with any parameters. It leaves
// out what ends the program (a close, a request to quit, Esc, Alt+F4, the end of the session) or destroys a
// window, because a program that obeys those has no fault.
class MessageStorm {
public:
    // The same seed and the same windows give the same messages.
    MessageStorm(const RemoteWindow& main, unsigned seed);

    void Post(int count);

private:
    struct Message {
        RemoteWindow to;
        UINT message = 0;
        WPARAM wParam = 0;
        LPARAM lParam = 0;
    };

    Message Any();
    Message Command();
    Message SystemCommand();
    Message Key();
    Message Mouse();
    Message Notice();
    Message ControlMessage();

    // A random number from 0 to count - 1.
    unsigned Pick(std::size_t count) { return static_cast<unsigned>(m_random() % count); }
    template <class List>
    auto OneOf(const List& list) {
        return list[Pick(std::size(list))];
    }

    RemoteWindow m_main;
    std::vector<RemoteWindow> m_controls;
    std::mt19937 m_random;
};

}  // namespace plotvane::test
