#include "history/TraceRuns.h"

#include <gtest/gtest.h>

#include "history/SlotMarks.h"
#include "history/TraceTexts.h"
#include "tests/unit/history/Drive.h"

namespace plotvane {
namespace {

// Ten samples of each: speed, speed with a wider range, load, nothing, speed.
class TraceRunsTest : public testing::Test {
protected:
    TraceRunsTest() {
        const RecordedTraces speed = test::SpeedAlone();
        RecordedTraces wider = speed;
        wider[0].upper = 200.0;
        RecordedTraces load = speed;
        load[0] = {true, 3, 1, false, "%", "Load", 0.0, 50.0};
        for (const RecordedTraces& traces : {speed, wider, load, RecordedTraces{}, speed}) {
            m_recording.BeginStretch(traces);
            test::Record(m_recording, std::vector<double>(10));
        }
    }

    Recording m_recording;
};

TEST_F(TraceRunsTest, AreOneForEachFieldInItsLastLimits) {
    const auto runs = RunsOf(m_recording, 0, 0, 50);
    ASSERT_EQ(runs.size(), 3U);
    EXPECT_EQ(runs[0].begin, 0);
    EXPECT_EQ(runs[0].end, 20);
    EXPECT_EQ(runs[0].shown->upper, 200.0);
    EXPECT_EQ(runs[1].begin, 20);
    EXPECT_EQ(runs[1].end, 30);
    EXPECT_EQ(runs[1].shown->name, "Load");
    EXPECT_EQ(runs[2].begin, 40);
    EXPECT_EQ(runs[2].end, 50);
    EXPECT_EQ(runs[2].shown->upper, 100.0);
}

TEST_F(TraceRunsTest, TakeLimitsFromBehindThePartThatIsAskedFor) {
    const auto runs = RunsOf(m_recording, 0, 3, 5);
    ASSERT_EQ(runs.size(), 1U);
    EXPECT_EQ(runs[0].begin, 3);
    EXPECT_EQ(runs[0].end, 5);
    EXPECT_EQ(runs[0].shown->upper, 200.0);
}

TEST_F(TraceRunsTest, TakeNoLimitsFromAnotherField) {
    const auto runs = RunsOf(m_recording, 0, 22, 24);
    ASSERT_EQ(runs.size(), 1U);
    EXPECT_EQ(runs[0].shown->upper, 50.0);
}

TEST_F(TraceRunsTest, TellWhatATraceShowsAtASample) {
    EXPECT_EQ(ShownAt(m_recording, 0, 19)->name, "Speed");
    EXPECT_EQ(ShownAt(m_recording, 0, 20)->name, "Load");
    EXPECT_EQ(ShownAt(m_recording, 0, 35), nullptr);
    EXPECT_EQ(ShownAt(m_recording, 1, 0), nullptr);
}

TEST_F(TraceRunsTest, AreMarkedWhereTheSlotsShowSomethingNew) {
    const std::vector<SlotMark> marks = SlotMarksOf(test::LookAtAll(m_recording, 49));
    ASSERT_EQ(marks.size(), 2U);
    EXPECT_EQ(marks[0].column, 20);
    EXPECT_EQ(marks[0].text, "Load");
    EXPECT_EQ(marks[1].column, 40);
    EXPECT_EQ(marks[1].text, "Speed");
}

TEST(TraceTexts, NameAFieldWithoutALabelByGroupAndField) {
    EXPECT_EQ(NameOf({true, 3, 0, false, "", "", 0.0, 1.0}), "003-1");
    EXPECT_EQ(NameOf({true, 115, 3, false, "", "", 0.0, 1.0}), "115-4");
    EXPECT_EQ(NameOf(test::SpeedTrace()), "Speed");
}

TEST(TraceTexts, ShowValuesAsTheirBoxesDo) {
    EXPECT_EQ(ValueText(test::SpeedTrace(), 2435.25), "2435.25");
    EXPECT_EQ(ValueText(test::SpeedTrace(), 1234567.0), "1.23457e+06");
    EXPECT_EQ(ValueAndUnitText(test::SpeedTrace(), 0.5), "0.5 /min");
    EXPECT_EQ(ValueAndUnitText({true, 31, 0, false, "", "", 0.0, 2.0}, 0.98), "0.98");
}

TEST(TraceTexts, ShowAnAirFuelRatioWithOneDecimalButNotALambdaOutOfItsRange) {
    const RecordedTrace ratio{true, 31, 0, true, "", "", 0.0, 30.0};
    EXPECT_EQ(ValueText(ratio, 0.98 * 14.7), "14.4");
    EXPECT_EQ(ValueText(ratio, 1.45), "1.45");
}

}  // namespace
}  // namespace plotvane
