#include "tools/sim/ProgressLine.h"

#include <gtest/gtest.h>

namespace plotvane {
namespace {

TEST(ProgressLine, ShowsTimePhaseRecordsAndValues) {
    const PlayProgress progress{.driveSeconds = 12.04,
                                .records = 120,
                                .heldBack = 0,
                                .phase = "pull away",
                                .values = "2285 /min  36 km/h"};
    EXPECT_EQ(ProgressLine(progress), "   12.0 s  pull away    120 records  2285 /min  36 km/h");
}

TEST(ProgressLine, SaysThatTheProgramIsNotReading) {
    const PlayProgress progress{
        .seconds = 0, .driveSeconds = 3, .records = 31, .heldBack = 4, .phase = {}, .values = "1 V"};
    EXPECT_EQ(ProgressLine(progress),
              "    3.0 s     31 records  1 V  (4 left out: the program is not reading)");
}

}  // namespace
}  // namespace plotvane
