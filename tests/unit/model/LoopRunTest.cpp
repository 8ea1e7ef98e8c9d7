#include "model/LoopRun.h"

#include <gtest/gtest.h>

namespace plotvane {
namespace {

class LoopRunTest : public testing::Test {
protected:
    LoopRunTest() { state.stopped = false; }
    RunState state;
};

TEST_F(LoopRunTest, GoesOnUntilItIsStopped) {
    const LoopRun run(state);
    EXPECT_FALSE(run.Ended());
    state.stopped = true;
    EXPECT_TRUE(run.Ended());
    EXPECT_TRUE(run.IsCurrent());
}

TEST_F(LoopRunTest, HasEndedOnceAnotherHasStarted) {
    const LoopRun run(state);
    ++state.generation;
    EXPECT_TRUE(run.Ended());
    EXPECT_FALSE(run.IsCurrent());
    EXPECT_FALSE(LoopRun(state).Ended());
}

}  // namespace
}  // namespace plotvane
