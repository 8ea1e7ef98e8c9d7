#include "app/SleepBlocker.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace plotvane {
namespace {

constexpr EXECUTION_STATE kAwake = ES_SYSTEM_REQUIRED | ES_DISPLAY_REQUIRED;

// What the thread has asked for until now. Asks for the same again.
EXECUTION_STATE Asked() {
    const EXECUTION_STATE asked = ::SetThreadExecutionState(ES_CONTINUOUS);
    ::SetThreadExecutionState(asked);
    return asked;
}

class SleepBlockerTest : public testing::Test {
protected:
    SleepBlockerTest() { ::SetThreadExecutionState(ES_CONTINUOUS); }
};

TEST_F(SleepBlockerTest, AsksForSystemAndDisplayUntilItIsTurnedOff) {
    SleepBlocker blocker;
    EXPECT_EQ(Asked() & kAwake, 0u);
    blocker.Set(true);
    EXPECT_EQ(Asked(), ES_CONTINUOUS | kAwake);
    blocker.Set(false);
    EXPECT_EQ(Asked() & kAwake, 0u);
}

TEST_F(SleepBlockerTest, AsksForNothingAfterItsEnd) {
    {
        SleepBlocker blocker;
        blocker.Set(true);
    }
    EXPECT_EQ(Asked() & kAwake, 0u);
}

}  // namespace
}  // namespace plotvane
