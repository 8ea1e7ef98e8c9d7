#pragma once

#include <gtest/gtest.h>

#include "tests/support/system/Await.h"
#include "tests/support/system/Keyboard.h"

namespace plotvane::test {

// Presses a key until something is so, three times at most. Another program may have taken the keyboard or
// the clipboard at that moment, and then the key has no effect. `getReady` is called before each press and
// gives the keyboard to the right window.
template <class GetReady, class Condition>
::testing::AssertionResult PressUntil(const GetReady& getReady, Key key, const Condition& isSo) {
    constexpr int kPresses = 3;
    ::testing::AssertionResult result = ::testing::AssertionFailure();
    for (int press = 0; press < kPresses && !result; ++press) {
        EXPECT_TRUE(getReady());
        PressKey(key);
        result = Becomes(isSo, true, kDeadline / kPresses);
    }
    return result;
}

}  // namespace plotvane::test
