#include "history/Viewport.h"

#include <gtest/gtest.h>

#include "history/TimeTicks.h"

namespace plotvane {
namespace {

Viewport Showing(double first, double last, double latest, int width) {
    Viewport view;
    view.SetWidth(width);
    view.SetLimits({first, last});
    view.ShowLatest(latest);
    return view;
}

TEST(Viewport, ShowsTheLatestAndFollowsIt) {
    Viewport view = Showing(0.0, 100.0, 60.0, 600);
    EXPECT_EQ(view.Begin(), 40.0);
    EXPECT_EQ(view.End(), 100.0);
    view.SetLimits({0.0, 110.0});
    EXPECT_EQ(view.End(), 116.0);
    EXPECT_EQ(view.Length(), 60.0);
    EXPECT_TRUE(view.IsFollowing());
}

TEST(Viewport, MovesOnByATenthOnceTheNewestLeavesIt) {
    Viewport view = Showing(0.0, 100.0, 60.0, 600);
    view.SetLimits({0.0, 101.0});
    EXPECT_EQ(view.End(), 107.0);
    view.SetLimits({0.0, 107.0});
    EXPECT_EQ(view.End(), 107.0);
    view.SetLimits({0.0, 108.0});
    EXPECT_EQ(view.End(), 114.0);
    EXPECT_EQ(view.Length(), 60.0);
}

TEST(Viewport, DoesNotMoveWhereNothingIsNew) {
    for (const double last : {0.1, 100.1, 1e8 / 3.0}) {
        for (const double latest : {60.0, 7.0, 1e9}) {
            Viewport view = Showing(0.1 / 3.0, last, latest, 600);
            const double end = view.End();
            view.SetLimits({0.1 / 3.0, last});
            EXPECT_EQ(view.End(), end) << last << ", " << latest;
        }
    }
}

TEST(Viewport, FollowsAsLongAsTheNewestIsInIt) {
    Viewport view = Showing(0.0, 100.0, 60.0, 600);
    view.SetLimits({0.0, 101.0});
    view.MoveBy(-50.0);
    EXPECT_EQ(view.End(), 102.0);
    EXPECT_TRUE(view.IsFollowing());
    view.SetLimits({0.0, 103.0});
    EXPECT_EQ(view.End(), 107.0);
    view.MoveBy(1e9);
    EXPECT_EQ(view.End(), 107.0);
    view.MoveToEnd();
    EXPECT_EQ(view.End(), 103.0);
    view.MoveBy(-1.0);
    EXPECT_FALSE(view.IsFollowing());
}

TEST(Viewport, KeepsTheTimeUnderThePointerWhereItHasRoom) {
    Viewport view = Showing(0.0, 100.0, 60.0, 600);
    view.SetLimits({0.0, 101.0});
    const double pointed = view.SecondsAt(550.0);
    view.ZoomAbout(550.0, 0.5, 0.1);
    EXPECT_DOUBLE_EQ(view.SecondsAt(550.0), pointed);
}

TEST(Viewport, GrowsToTheLengthThatWasAskedForAsSamplesCome) {
    Viewport view = Showing(0.0, 10.0, 60.0, 600);
    EXPECT_EQ(view.Begin(), 0.0);
    EXPECT_EQ(view.Length(), 10.0);
    view.SetLimits({0.0, 20.0});
    EXPECT_EQ(view.Begin(), 0.0);
    EXPECT_EQ(view.Length(), 30.0);
    view.SetLimits({0.0, 50.0});
    EXPECT_EQ(view.Begin(), 0.0);
    EXPECT_EQ(view.Length(), 60.0);
    view.SetLimits({0.0, 200.0});
    EXPECT_EQ(view.Begin(), 146.0);
    EXPECT_EQ(view.Length(), 60.0);
}

TEST(Viewport, StaysWhereItIsLookedAtOnceItWasMoved) {
    Viewport view = Showing(0.0, 100.0, 10.0, 100);
    view.MoveBy(-50.0);
    EXPECT_EQ(view.Begin(), 85.0);
    view.SetLimits({0.0, 200.0});
    EXPECT_EQ(view.Begin(), 85.0);
    EXPECT_FALSE(view.IsFollowing());
    view.MoveToEnd();
    EXPECT_EQ(view.End(), 200.0);
    view.SetLimits({0.0, 300.0});
    EXPECT_EQ(view.End(), 301.0);
}

TEST(Viewport, GoesOnShowingEverything) {
    Viewport view = Showing(0.0, 100.0, 10.0, 100);
    view.ShowAll();
    view.SetLimits({50.0, 300.0});
    EXPECT_EQ(view.Begin(), 50.0);
    EXPECT_EQ(view.End(), 330.0);
    view.SetLimits({60.0, 310.0});
    EXPECT_EQ(view.Begin(), 60.0);
    view.MoveToEnd();
    EXPECT_EQ(view.Begin(), 60.0);
    EXPECT_EQ(view.End(), 310.0);
    view.SetLimits({60.0, 460.0});
    EXPECT_EQ(view.End(), 500.0);
}

// A begin that was rounded up would leave the first sample out.
TEST(Viewport, BeginsExactlyAtTheFirstWhereItShowsEverything) {
    for (int i = 1; i < 2000; ++i) {
        const double first = i * 0.04;
        const Viewport view = Showing(first, first + 5839.0 + i / 3.0, 1e9, 600);
        ASSERT_EQ(view.Begin(), first) << i;
    }
}

TEST(Viewport, IsTakenAlongWhereTheOldestSamplesGo) {
    Viewport view = Showing(0.0, 100.0, 10.0, 100);
    view.MoveToBegin();
    view.SetLimits({5.0, 105.0});
    EXPECT_EQ(view.Begin(), 5.0);
}

TEST(Viewport, KeepsTheTimeUnderThePointerWhenZooming) {
    Viewport view = Showing(0.0, 1000.0, 100.0, 1000);
    view.MoveToBegin();
    view.MoveBy(2000.0);
    const double pointed = view.SecondsAt(300.0);
    view.ZoomAbout(300.0, 0.5, 0.1);
    EXPECT_DOUBLE_EQ(view.SecondsAt(300.0), pointed);
    EXPECT_DOUBLE_EQ(view.Length(), 50.0);
    view.ZoomAbout(300.0, 2.0, 0.1);
    EXPECT_DOUBLE_EQ(view.SecondsAt(300.0), pointed);
    EXPECT_DOUBLE_EQ(view.Length(), 100.0);
}

TEST(Viewport, ZoomsInToTheShortestAndOutToEverything) {
    Viewport view = Showing(0.0, 1000.0, 100.0, 1000);
    for (int i = 0; i < 50; ++i) view.ZoomAbout(10.0, 0.5, 2.0);
    EXPECT_EQ(view.Length(), 2.0);
    // A place where samples are further apart does not zoom out.
    view.ZoomAbout(10.0, 0.5, 30.0);
    EXPECT_EQ(view.Length(), 2.0);
    for (int i = 0; i < 50; ++i) view.ZoomAbout(10.0, 2.0, 2.0);
    EXPECT_EQ(view.Begin(), 0.0);
    EXPECT_EQ(view.End(), 1000.0);
    EXPECT_TRUE(view.IsFollowing());
}

TEST(Viewport, NeverLeavesWhatIsRecorded) {
    Viewport view = Showing(10.0, 100.0, 20.0, 100);
    view.MoveBy(1e9);
    EXPECT_EQ(view.End(), 100.0);
    view.MoveBy(-1e9);
    EXPECT_EQ(view.Begin(), 10.0);
    view.Reveal(5.0);
    EXPECT_EQ(view.Begin(), 10.0);
}

TEST(Viewport, RevealsATimeWithTheLeastMove) {
    Viewport view = Showing(0.0, 100.0, 20.0, 100);
    view.Reveal(50.0);
    EXPECT_EQ(view.Begin(), 50.0);
    view.Reveal(75.0);
    EXPECT_EQ(view.End(), 75.0);
    view.Reveal(60.0);
    EXPECT_EQ(view.End(), 75.0);
}

TEST(Viewport, HasALengthWhereOnlyOneMomentIsRecorded) {
    const Viewport view = Showing(7.0, 7.0, 60.0, 100);
    EXPECT_EQ(view.Begin(), 7.0);
    EXPECT_EQ(view.Length(), Viewport::kShortest);
}

TEST(TimeText, IsReadAsPeopleReadTimes) {
    EXPECT_EQ(TimeText(0.0, 0), "0");
    EXPECT_EQ(TimeText(12.5, 1), "12.5");
    EXPECT_EQ(TimeText(65.0, 0), "1:05");
    EXPECT_EQ(TimeText(113.4, 2), "1:53.40");
    EXPECT_EQ(TimeText(3750.0, 0), "1:02:30");
    EXPECT_EQ(TimeText(-65.0, 0), "-1:05");
}

TEST(TimeText, CarriesWhatIsRoundedUp) {
    EXPECT_EQ(TimeText(59.96, 1), "1:00.0");
    EXPECT_EQ(TimeText(3599.99, 1), "1:00:00.0");
    EXPECT_EQ(TimeText(-0.001, 1), "0.0");
}

TEST(DurationText, SaysHowLong) {
    EXPECT_EQ(DurationText(0.0), "0 s");
    EXPECT_EQ(DurationText(59.9), "59 s");
    EXPECT_EQ(DurationText(192.0), "3 min 12 s");
    EXPECT_EQ(DurationText(3780.0), "1 h 3 min");
    EXPECT_EQ(DurationText(1e300), "277777 h 46 min");
}

std::vector<std::string> TextsOf(const Viewport& view, int distance) {
    std::vector<std::string> texts;
    for (const TimeTick& tick : TimeTicks(view, distance)) texts.push_back(tick.text);
    return texts;
}

TEST(TimeTicks, StandAtRoundTimesAndKeepTheirDistance) {
    EXPECT_EQ(TextsOf(Showing(0.0, 60.0, 60.0, 600), 100),
              (std::vector<std::string>{"0", "10", "20", "30", "40", "50", "1:00"}));
    EXPECT_EQ(TextsOf(Showing(0.0, 1.0, 1.0, 500), 100),
              (std::vector<std::string>{"0.0", "0.2", "0.4", "0.6", "0.8", "1.0"}));
    EXPECT_EQ(TextsOf(Showing(0.0, 7200.0, 7200.0, 400), 90),
              (std::vector<std::string>{"0", "30:00", "1:00:00", "1:30:00", "2:00:00"}));
}

TEST(TimeTicks, BeginInsideOfTheView) {
    EXPECT_EQ(TextsOf(Showing(0.0, 95.0, 30.0, 300), 100),
              (std::vector<std::string>{"1:10", "1:20", "1:30"}));
}

TEST(TimeTicks, AreNeverMoreThanFitHoweverFarTheTimesAre) {
    for (const double far : {1e9, 1e12, 1e15}) {
        EXPECT_LE(TextsOf(Showing(-far, far, 2 * far, 1000), 100).size(), 11U);
        EXPECT_LE(TextsOf(Showing(-far, far, 0.02, 1000), 100).size(), 11U);
    }
}

}  // namespace
}  // namespace plotvane
