#include "history/LookBack.h"

#include <gtest/gtest.h>

#include "tests/unit/history/Drive.h"

namespace plotvane {
namespace {

using test::kAllDrawn;
using test::ValuesFrom;

class LookBackTest : public testing::Test {
protected:
    void Record(int count) {
        test::Record(m_recording, std::vector<double>(static_cast<std::size_t>(count)));
    }
    LookBack Opened(int columns = 60) {
        LookBack state(m_recording);
        state.SetPlotWidth(columns);
        state.Refresh();
        return state;
    }

    Recording m_recording;
};

TEST_F(LookBackTest, OpensWithTheLastMinuteAndFollows) {
    Record(1000);
    LookBack state = Opened();
    EXPECT_EQ(state.View().Begin(), 939.0);
    EXPECT_EQ(state.View().End(), 999.0);
    Record(1);
    EXPECT_TRUE(state.Refresh());
    EXPECT_EQ(state.View().End(), 1006.0);
    EXPECT_EQ(state.ToldSample(), 1000);
    EXPECT_FALSE(state.Refresh());
}

TEST_F(LookBackTest, StandsStillOnceItIsMoved) {
    Record(1000);
    LookBack state = Opened();
    state.MoveBy(-10.0);
    Record(5);
    state.Refresh();
    EXPECT_EQ(state.View().End(), 989.0);
    state.MoveToEnd();
    EXPECT_EQ(state.View().End(), 1004.0);
}

TEST_F(LookBackTest, ShowsNothingOfAnEmptyRecordingAndThenWhatComes) {
    LookBack state = Opened();
    EXPECT_FALSE(state.Refresh());
    EXPECT_FALSE(state.ToldSample());
    state.PointAt(10);
    state.Fix(10);
    state.FixSecond(20);
    state.StepCursor(1);
    state.StepSecond(1);
    state.ZoomAbout(10.0, 0.5);
    state.ZoomAboutCursor(2.0);
    state.StepFront(1);
    EXPECT_FALSE(state.Cursor());
    Record(30);
    EXPECT_TRUE(state.Refresh());
    EXPECT_EQ(state.View().End(), 29.0);
}

TEST_F(LookBackTest, StartsOverWhenTheRecordingBeginsAfresh) {
    Record(100);
    LookBack state = Opened();
    state.Fix(5);
    state.FixSecond(6);
    state.ToggleFront(0);
    m_recording.Begin("other");
    EXPECT_TRUE(state.Refresh());
    EXPECT_FALSE(state.Cursor());
    EXPECT_FALSE(state.Second());
    EXPECT_FALSE(state.Front());
}

TEST_F(LookBackTest, ZoomsInToTenSamples) {
    Record(1000);
    LookBack state = Opened();
    for (int i = 0; i < 40; ++i) state.ZoomAbout(30.0, 0.5);
    const LookBack::SampleRange view = state.InView();
    EXPECT_GE(view.end - view.begin, 9);
    EXPECT_LE(view.end - view.begin, 10);
}

TEST_F(LookBackTest, CountsNoGapAmongTheTenSamples) {
    Record(20);
    m_recording.MarkGap();
    m_recording.Add(5000.0, ValuesFrom(0.0), kAllDrawn);
    LookBack state = test::LookAtAll(m_recording, 100);
    for (int i = 0; i < 40; ++i) state.ZoomAbout(0.0, 0.5);
    EXPECT_DOUBLE_EQ(state.View().Length(), 9.0);
}

TEST_F(LookBackTest, PointsAtTheNearestSampleAtOrBeforeThePointer) {
    Record(61);
    LookBack state = Opened(600);  // ten columns a second
    state.PointAt(0);
    EXPECT_EQ(state.Cursor(), 0);
    state.PointAt(129);
    EXPECT_EQ(state.Cursor(), 12);
    state.PointAt(130);
    EXPECT_EQ(state.Cursor(), 13);
    state.PointAt(599);
    EXPECT_EQ(state.Cursor(), 60);  // the newest, which stands at the edge
    state.PointNowhere();
    EXPECT_FALSE(state.Cursor());
}

TEST_F(LookBackTest, TellsTheLastSampleInViewWithoutACursor) {
    Record(200);
    LookBack state = Opened();
    EXPECT_EQ(state.ToldSample(), 199);
    state.MoveBy(-60.0);
    EXPECT_EQ(state.ToldSample(), 139);
}

TEST_F(LookBackTest, KeepsAFixedCursorOnItsSample) {
    Record(61);
    LookBack state = Opened(600);
    state.Fix(205);
    EXPECT_EQ(state.Cursor(), 20);
    state.PointAt(400);
    EXPECT_EQ(state.Cursor(), 20);
    EXPECT_EQ(state.CursorColumn(), 200.0);
    state.Fix(300);
    EXPECT_EQ(state.Cursor(), 30);
}

TEST_F(LookBackTest, LetsACursorGoThatIsClickedAgain) {
    Record(61);
    LookBack state = Opened(600);
    state.Fix(200);
    state.FixSecond(400);
    state.Fix(203);
    EXPECT_FALSE(state.IsFixed());
    EXPECT_FALSE(state.Second());
}

TEST_F(LookBackTest, MakesTheFirstCursorOfASecondWithoutOne) {
    Record(61);
    LookBack state = Opened(600);
    state.FixSecond(200);
    EXPECT_EQ(state.Cursor(), 20);
    EXPECT_FALSE(state.Second());
    state.FixSecond(100);
    EXPECT_EQ(state.Cursor(), 20);
    EXPECT_EQ(state.Second(), 10);
}

TEST_F(LookBackTest, MovesCursorsBySamplesAndShowsThem) {
    Record(1000);
    LookBack state = Opened();
    state.StepCursor(0);
    EXPECT_EQ(state.Cursor(), 999);
    state.StepCursor(-500);
    EXPECT_EQ(state.Cursor(), 499);
    EXPECT_EQ(state.View().Begin(), 499.0);
    state.StepSecond(3);
    EXPECT_EQ(state.Second(), 502);
    state.StepCursor(-5000);
    EXPECT_EQ(state.Cursor(), 0);
    state.StepSecond(5000);
    EXPECT_EQ(state.Second(), 999);
}

// A column of the view is two samples wide.
TEST_F(LookBackTest, MovesCursorsByColumnsAndShowsThem) {
    Record(121);
    LookBack state = Opened();
    state.ShowAll();
    state.Fix(30);
    ASSERT_EQ(state.Cursor(), 61);
    state.MoveCursor(1);
    EXPECT_EQ(state.Cursor(), 63);
    state.MoveCursor(-2);
    EXPECT_EQ(state.Cursor(), 59);
    state.MoveSecond(3);
    EXPECT_EQ(state.Cursor(), 59);
    EXPECT_EQ(state.Second(), 65);
    state.MoveCursor(-1000);
    EXPECT_EQ(state.Cursor(), 0);
}

TEST_F(LookBackTest, MovesACursorByASampleAtLeast) {
    Record(100);
    LookBack state = Opened(6000);
    state.Fix(3000);
    const auto fixed = *state.Cursor();
    state.MoveCursor(1);
    EXPECT_EQ(state.Cursor(), fixed + 1);
    state.MoveCursor(-1);
    EXPECT_EQ(state.Cursor(), fixed);
}

TEST_F(LookBackTest, FixesTheCursorWhereItIsAndLetsItGo) {
    Record(61);
    LookBack state = Opened();
    state.PointAt(10);
    state.ToggleFixed();
    state.PointAt(40);
    EXPECT_EQ(state.Cursor(), 10);
    state.StepSecond(5);
    state.ToggleFixed();
    EXPECT_FALSE(state.IsFixed());
    EXPECT_FALSE(state.Second());
    EXPECT_EQ(state.Cursor(), 40);
}

TEST_F(LookBackTest, LosesCursorsWithTheirSamples) {
    Record(100);
    LookBack state = test::LookAtAll(m_recording, 100);
    state.Fix(50);
    state.FixSecond(60);
    for (int i = 0; i < Recording::kMostPieces * SamplePiece::kSamples; ++i)
        m_recording.Add(100.0 + i, ValuesFrom(0.0), kAllDrawn);
    ASSERT_GT(m_recording.Begin(), 60);
    state.Refresh();
    EXPECT_FALSE(state.Cursor());
    EXPECT_FALSE(state.Second());
}

TEST_F(LookBackTest, HidesAtFirstWhatTheChartDoesNotDraw) {
    m_recording.BeginStretch(test::SpeedAlone());
    m_recording.Add(0.0, ValuesFrom(0.0), 0b101);
    const LookBack state = Opened();
    EXPECT_FALSE(state.IsHidden(0));
    EXPECT_TRUE(state.IsHidden(1));
    EXPECT_FALSE(state.IsHidden(2));
}

TEST_F(LookBackTest, BringsATraceToTheFrontAndAllBackAgain) {
    Record(1);
    LookBack state = Opened();
    state.ToggleHidden(3);
    state.ToggleFront(3);
    EXPECT_EQ(state.Front(), 3);
    EXPECT_FALSE(state.IsHidden(3));
    state.ToggleFront(3);
    EXPECT_FALSE(state.Front());
}

TEST_F(LookBackTest, PrefersAScaleUnlessItsTraceIsHidden) {
    RecordedTraces traces = test::SpeedAlone();
    traces[3] = traces[5] = test::SpeedTrace();
    m_recording.BeginStretch(traces);
    Record(10);
    LookBack state = Opened();
    EXPECT_EQ(state.ScaleTrace(), 0);
    state.PreferScaleOf(5);
    EXPECT_EQ(state.ScaleTrace(), 5);
    state.ToggleFront(3);
    EXPECT_EQ(state.ScaleTrace(), 3);
    state.ToggleFront(3);
    state.ToggleHidden(5);
    EXPECT_EQ(state.ScaleTrace(), 0);
    state.PreferScaleOf(9);  // shows nothing
    EXPECT_EQ(state.ScaleTrace(), 0);
}

TEST_F(LookBackTest, StepsTheFrontThroughWhatIsShownAndThroughNone) {
    RecordedTraces traces;
    for (const std::size_t trace : {0U, 4U, 7U}) traces[trace] = test::SpeedTrace();
    m_recording.BeginStretch(traces);
    Record(1);
    LookBack state = Opened();
    state.ToggleHidden(4);
    EXPECT_EQ(state.ScaleTrace(), 0);
    state.StepFront(1);
    EXPECT_EQ(state.Front(), 0);
    state.StepFront(1);
    EXPECT_EQ(state.Front(), 7);
    EXPECT_EQ(state.ScaleTrace(), 7);
    state.StepFront(1);
    EXPECT_FALSE(state.Front());
    state.StepFront(-1);
    EXPECT_EQ(state.Front(), 7);
}

}  // namespace
}  // namespace plotvane
