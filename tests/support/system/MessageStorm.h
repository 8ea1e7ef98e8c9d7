#pragma once

#include <random>
#include <vector>

#include "tests/support/system/RemoteWindow.h"

namespace plotvane::test {

// Messages at random, posted to the main window and its controls: commands of every control, items of the
// system menu, timers, keys, the mouse, and what the system tells windows, in any order and with any
// parameters. Left out is what asks for an end (a close, a request to quit, Esc, Alt+F4, the end of the
// session) or destroys a window: a program that does what it is asked has no fault.
class MessageStorm {
public:
    // The same seed gives the same messages, as far as the windows are the same.
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

    // One of so many numbers, from 0.
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
