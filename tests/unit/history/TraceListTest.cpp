#include "history/TraceList.h"

#include <gtest/gtest.h>

#include "history/SpanFigures.h"
#include "tests/unit/history/Drive.h"

namespace plotvane {
namespace {

TEST(SpanFigures, AreThoseOfTheSamples) {
    Recording recording;
    test::Record(recording, {9.0, 10.0, 40.0, -5.0, 15.0, 99.0});
    const SpanFigures figures = FiguresOf(recording, 0, 1, 4);
    EXPECT_EQ(figures.difference, 5.0);
    EXPECT_EQ(figures.lowest, -5.0);
    EXPECT_EQ(figures.highest, 40.0);
    EXPECT_EQ(figures.mean, 15.0);
}

TEST(SpanFigures, HaveAMeanOfSamplesWhateverTimeLiesBetween) {
    Recording recording;
    recording.BeginStretch(test::SpeedAlone());
    recording.Add(0.0, test::ValuesFrom(0.0), test::kAllDrawn);
    recording.Add(100.0, test::ValuesFrom(0.0), test::kAllDrawn);
    recording.Add(100.1, test::ValuesFrom(30.0), test::kAllDrawn);
    EXPECT_EQ(FiguresOf(recording, 0, 0, 2).mean, 10.0);
}

TEST(SpanFigures, HaveAMeanWhereTheSumIsTooLargeForANumber) {
    Recording recording;
    test::Record(recording, {1.7e308, 1.7e308, 1.7e308});
    EXPECT_EQ(FiguresOf(recording, 0, 0, 2).mean, 1.7e308);
}

// Speed as trace 0, load without a label as trace 2.
class TraceListTest : public testing::Test {
protected:
    TraceListTest() {
        RecordedTraces traces = test::SpeedAlone();
        traces[2] = {true, 3, 1, false, "%", "", 0.0, 50.0};
        m_recording.BeginStretch(traces);
        test::Record(m_recording, {10.0, 20.0, 60.0, 30.0, 40.0});
    }
    LookBack State() { return test::LookAtAll(m_recording, 400); }  // a hundred columns a second

    Recording m_recording;
};

TEST_F(TraceListTest, HasTheTracesThatShowSomethingWithTheLastValues) {
    const auto list = ListOf(State());
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[0].trace, 0);
    EXPECT_EQ(list[0].name, "Speed");
    EXPECT_EQ(list[0].value, "40 /min");
    EXPECT_EQ(list[0].extent, "10 \x85 60");
    EXPECT_EQ(list[0].difference, "");
    EXPECT_EQ(list[1].trace, 2);
    EXPECT_EQ(list[1].name, "003-2");
    EXPECT_EQ(list[1].value, "42 %");
}

TEST_F(TraceListTest, HasTheValuesOfTheSampleUnderTheCursor) {
    LookBack state = State();
    state.PointAt(250);
    EXPECT_EQ(ListOf(state)[0].value, "60 /min");
    EXPECT_EQ(TimesOfCursors(state).time, "2.00");
    EXPECT_EQ(TimesOfCursors(state).distance, "");
}

TEST_F(TraceListTest, HasLowestAndHighestOfWhatIsInView) {
    test::Record(m_recording, std::vector<double>(100, 50.0));
    LookBack state = test::LookAtAll(m_recording, 104);
    state.ZoomAbout(104.0, 0.5);
    EXPECT_EQ(ListOf(state)[0].extent, "50 \x85 50");
}

TEST_F(TraceListTest, TellsDifferenceLowestHighestAndMeanBetweenTwoCursors) {
    LookBack state = State();
    state.Fix(310);
    state.FixSecond(110);
    const auto list = ListOf(state);
    EXPECT_EQ(list[0].value, "30 /min");
    EXPECT_EQ(list[0].difference, "diff 10");
    EXPECT_EQ(list[0].extent, "20 \x85 60, mean 36.6667");
    EXPECT_EQ(TimesOfCursors(state).distance, "2.00 s");
}

TEST_F(TraceListTest, TellsNoFiguresOfTwoDifferentFields) {
    RecordedTraces other = test::SpeedAlone();
    other[0].group = 9;
    m_recording.BeginStretch(other);
    test::Record(m_recording, {7.0, 8.0});
    LookBack state = test::LookAtAll(m_recording, 600);
    state.Fix(110);
    state.FixSecond(550);
    EXPECT_EQ(ListOf(state)[0].difference, "");
}

TEST_F(TraceListTest, GivesATableOfOneCursor) {
    LookBack state = State();
    state.PointAt(100);
    EXPECT_EQ(CursorTable(state), "Name\tUnit\t1.00\r\nSpeed\t/min\t20\r\n003-2\t%\t22\r\n");
    state.ToggleHidden(0);
    EXPECT_EQ(CursorTable(state), "Name\tUnit\t1.00\r\n003-2\t%\t22\r\n");
}

TEST_F(TraceListTest, GivesATableOfTwoCursorsInTheOrderOfTime) {
    LookBack state = State();
    state.ToggleHidden(2);
    state.Fix(310);
    state.FixSecond(110);
    EXPECT_EQ(CursorTable(state),
              "Name\tUnit\t1.00\t3.00\tDifference\tLowest\tMean\tHighest\r\n"
              "Speed\t/min\t20\t30\t10\t20\t36.6667\t60\r\n");
}

TEST_F(TraceListTest, NotesHowMuchIsRecordedAndWhetherItIsFollowed) {
    LookBack state = State();
    EXPECT_EQ(RecordedNote(state), "4 s recorded, following");
    const Recording empty;
    EXPECT_EQ(RecordedNote(LookBack(empty)), "nothing recorded yet");
}

TEST(CursorTable, IsEmptyWithoutSamplesAndKeepsItsCellsApart) {
    Recording recording;
    EXPECT_EQ(CursorTable(test::LookAtAll(recording, 100)), "");
    RecordedTraces traces = test::SpeedAlone();
    traces[0].name = "A\tB\r\nC";
    recording.BeginStretch(traces);
    test::Record(recording, {1.0});
    EXPECT_EQ(CursorTable(test::LookAtAll(recording, 100)), "Name\tUnit\t0.00\r\nA B  C\t/min\t1\r\n");
}

}  // namespace
}  // namespace plotvane
