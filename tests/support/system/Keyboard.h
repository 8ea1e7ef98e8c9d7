#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include "tests/support/system/RemoteWindow.h"

namespace plotvane::test {

struct Key {
    WORD code = 0;  // VK_...
    bool control = false;
    bool shift = false;
};

constexpr Key Ctrl(WORD code) {
    return {code, true};
}

// The keyboard of the machine. Keys go to the window in front, as a person's do, and arrive when the program
// asks for them.

// Puts a window in front. The failure says which one is there instead.
::testing::AssertionResult BringToFront(const RemoteWindow& window);

// Down and up. Held down for longer, the same key goes down again and again.
void PressKey(Key key, int timesDown = 1);

}  // namespace plotvane::test
