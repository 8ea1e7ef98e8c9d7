#include "history/ReadOut.h"

#include <gtest/gtest.h>

#include "tests/unit/history/Drive.h"

namespace plotvane {
namespace {

TEST(ReadOut, TellsTheValuesOfASampleAndItsAge) {
    RecordedTraces traces = test::SpeedAlone();
    traces[2] = {true, 3, 1, false, "%", "", 0.0, 50.0};
    Recording recording;
    recording.BeginStretch(traces);
    test::Record(recording, {10.0, 20.0, 30.5});
    EXPECT_EQ(ReadOutOf(recording, 1),
              (ReadOut{"1.00 s before the newest", {{0, "Speed", "20 /min"}, {2, "003-2", "22 %"}}}));
    EXPECT_EQ(ReadOutOf(recording, 2).age, "0.00 s before the newest");
    EXPECT_EQ(ReadOutOf(recording, 2).lines[0].value, "30.5 /min");
}

TEST(ReadOut, IsReadLineByLine) {
    Recording recording;
    test::Record(recording, {10.0});
    EXPECT_EQ(ReadOutOf(recording, 0).Text(), "0.00 s before the newest\r\nSpeed: 10 /min");
}

TEST(ReadOut, TellsALongerAgeInMinutes) {
    Recording recording;
    test::Record(recording, std::vector<double>(80, 1.0));
    EXPECT_EQ(ReadOutOf(recording, 4).age, "1:15.00 before the newest");
}

}  // namespace
}  // namespace plotvane
