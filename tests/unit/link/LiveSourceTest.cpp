#include "link/LiveSource.h"

#include <gtest/gtest.h>

#include "link/ExchangeFile.h"
#include "tests/support/FakePump.h"
#include "tests/support/Records.h"
#include "tests/support/ScriptedPipe.h"
#include "tests/support/TempFolder.h"

namespace plotvane {
namespace {

// In a working folder of its own.
class LiveSourceTest : public testing::Test {
protected:
    LiveSourceTest() {
        std::filesystem::current_path(folder.Path());
        state.stopped = false;
    }
    ~LiveSourceTest() override { std::filesystem::current_path(m_before); }

private:
    const std::filesystem::path m_before = std::filesystem::current_path();

protected:
    test::TempFolder folder;
    RunState state;
    RecordBuffer record;
    test::FakePump pump;
    test::ScriptedPipe pipe;
    LiveSource live{pipe, pump};
};

TEST_F(LiveSourceTest, TakesThePipeThatTheExchangeFileNames) {
    test::WriteBytes(folder / kExchangeFileName, "7\n");
    EXPECT_TRUE(live.Open());
    EXPECT_EQ(pipe.descriptor, 7);
}

TEST_F(LiveSourceTest, LeavesThePipeAloneWithoutAnExchangeFile) {
    const int before = pipe.descriptor;
    EXPECT_FALSE(live.Open());
    EXPECT_EQ(pipe.descriptor, before);
}

TEST_F(LiveSourceTest, GivesTheNextRecordOfThePipe) {
    pipe.Write(test::BlockOf("one,"));
    (void)live.Read(record, LoopRun(state));
    EXPECT_EQ(record.Text(), "one,");
}

}  // namespace
}  // namespace plotvane
