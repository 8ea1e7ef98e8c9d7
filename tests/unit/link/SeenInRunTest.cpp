// From when on a run counts what it has seen of a value.
#include <gtest/gtest.h>

#include "tests/support/AcquisitionFixture.h"
#include "tests/support/Records.h"

namespace plotvane {
namespace {

class SeenInRunTest : public test::AcquisitionFixture {
protected:
    SeenInRunTest() {
        state.hostRunning = true;
        test::WriteBytes(folder / "MB-PIPE.TXT", "5\n");
    }
    void Send(const std::string& value, const std::string& group = "001") {
        pipe.Write(
            test::BlockOf("038 906 019 FT,G" + group + ",F0," + value + ",," + test::Empty(kSlotCount - 1)));
    }
    void RunToItsEnd() {
        pipe.Write("\xFE");
        acquisition.control.StartLive();
    }
    std::optional<ScaleRange> Range() { return acquisition.loop.Seen().RangeAround(0, data.slots[0]); }
};

TEST_F(SeenInRunTest, CountsEveryRecord) {
    for (const char* value : {"20", "40", "30"}) Send(value);
    RunToItsEnd();
    EXPECT_EQ(Range(), (ScaleRange{19, 41}));
}

TEST_F(SeenInRunTest, BeginsAgainWithEachRun) {
    for (const char* value : {"20", "40"}) Send(value);
    RunToItsEnd();
    for (const char* value : {"60", "80"}) Send(value);
    RunToItsEnd();
    EXPECT_EQ(Range(), (ScaleRange{59, 81}));
}

TEST_F(SeenInRunTest, TakesTheRatioWhereALambdaIsShownAsOne) {
    panel.airFuelOn[0] = true;
    for (const char* lambda : {"1", "0.7", "1.2"}) Send(lambda, "031");
    RunToItsEnd();
    // 10.29 and 17.64, and 0.3675 at each end.
    EXPECT_EQ(Range(), (ScaleRange{9, 19}));
}

}  // namespace
}  // namespace plotvane
