#include "history/TraceColumns.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "tests/unit/history/Drive.h"

namespace plotvane {
namespace {

using test::kAllDrawn;
using test::ValuesFrom;

struct Line {
    int first = 0;
    std::vector<ColumnSpan> spans;

    // Empty where the line does not reach.
    ColumnSpan At(int column) const {
        const int place = column - first;
        if (place < 0 || place >= static_cast<int>(spans.size())) return {};
        return spans[static_cast<std::size_t>(place)];
    }
};

Line LineOf(const LookBack& state) {
    const Recording& recording = state.Samples();
    Line line;
    line.first =
        TraceColumns(recording, state.View()).LineThrough(0, recording.Begin(), recording.End(), line.spans);
    return line;
}

TEST(TraceColumns, JoinNeighboursWhereTheLineCrossesTheirEdge) {
    Recording recording;
    test::Record(recording, {0.0, 40.0});
    const Line line = LineOf(test::LookAtAll(recording, 4));
    EXPECT_EQ(line.At(0), (ColumnSpan{0.0, 10.0}));
    EXPECT_EQ(line.At(1), (ColumnSpan{10.0, 20.0}));
    EXPECT_EQ(line.At(2), (ColumnSpan{20.0, 30.0}));
    EXPECT_EQ(line.At(3), (ColumnSpan{30.0, 40.0}));
}

TEST(TraceColumns, ShowTheNewestSampleInTheLastColumn) {
    Recording recording;
    test::Record(recording, {0.0, 0.0, 0.0, 0.0});
    recording.MarkGap();
    test::Record(recording, {90.0});  // nothing leads to it
    EXPECT_EQ(LineOf(test::LookAtAll(recording, 100)).At(99), (ColumnSpan{90.0, 90.0}));
}

TEST(TraceColumns, LeaveAGapAGap) {
    Recording recording;
    test::Record(recording, {10.0, 10.0});
    recording.MarkGap();
    test::Record(recording, {20.0, 20.0});
    const Line line = LineOf(test::LookAtAll(recording, 30));
    EXPECT_EQ(line.At(5), (ColumnSpan{10.0, 10.0}));
    EXPECT_TRUE(line.At(15).IsEmpty());
    EXPECT_EQ(line.At(25), (ColumnSpan{20.0, 20.0}));
}

TEST(TraceColumns, ShowOneSampleAsAPoint) {
    Recording recording;
    test::Record(recording, {33.0});
    const Line line = LineOf(test::LookAtAll(recording, 50));
    EXPECT_EQ(line.At(0), (ColumnSpan{33.0, 33.0}));
    EXPECT_TRUE(line.At(1).IsEmpty());
}

TEST(TraceColumns, ShowTwoSamplesAtOneTimeAsAnUprightLine) {
    Recording recording;
    recording.BeginStretch(test::SpeedAlone());
    for (const auto& [seconds, value] :
         {std::pair(0.0, 10.0), std::pair(5.0, 10.0), std::pair(5.0, 80.0), std::pair(9.5, 80.0)})
        recording.Add(seconds, ValuesFrom(value), kAllDrawn);
    const Line line = LineOf(test::LookAtAll(recording, 19));
    EXPECT_EQ(line.At(9), (ColumnSpan{10.0, 10.0}));
    EXPECT_EQ(line.At(10), (ColumnSpan{10.0, 80.0}));
    EXPECT_EQ(line.At(11), (ColumnSpan{80.0, 80.0}));
}

TEST(TraceColumns, ShowTheLinesThatLeadOutOfTheView) {
    Recording recording;
    test::Record(recording, {0.0, 100.0});
    Viewport view = test::LookAtAll(recording, 100).View();
    view.ZoomAbout(50.0, 0.1, 0.001);  // between the two
    Line line;
    line.first = TraceColumns(recording, view).LineThrough(0, 0, 2, line.spans);
    EXPECT_NEAR(line.At(0).lowest, 45.0, 1e-6);
    EXPECT_NEAR(line.At(99).highest, 55.0, 1e-6);
}

TEST(TraceColumns, GiveNothingForALineThatTheViewDoesNotReach) {
    Recording recording;
    test::Record(recording, std::vector<double>(100, 5.0));
    LookBack state = test::LookAtAll(recording, 50);
    state.ZoomAbout(0.0, 0.2);
    std::vector<ColumnSpan> spans{{1.0, 2.0}};
    TraceColumns(recording, state.View()).LineThrough(0, 60, 100, spans);
    EXPECT_TRUE(std::ranges::all_of(spans, &ColumnSpan::IsEmpty));
}

// Compared with all samples, by the edges of the columns: whatever the zoom, each sample in view lies in the
// span of its column, and each span reaches no further than samples and the lines between them do.
TEST(TraceColumns, LoseNoSampleAtAnyZoom) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> value(0.0, 100.0);
    std::uniform_real_distribution<double> step(0.0, 0.4);
    std::uniform_int_distribution<int> chance(0, 99);
    Recording recording;
    recording.BeginStretch(test::SpeedAlone());
    double seconds = 0.0;
    for (int i = 0; i < 30'000; ++i) {
        if (chance(random) == 0) recording.MarkGap();
        if (chance(random) != 1) seconds += step(random);
        recording.Add(seconds, ValuesFrom(value(random)), kAllDrawn);
    }
    LookBack state = test::LookAtAll(recording, 333);
    for (int zoom = 0; zoom < 14; ++zoom, state.ZoomAbout(100.0, 0.5)) {
        const Line line = LineOf(state);
        const LookBack::SampleRange view = state.InView();
        for (std::int64_t sample = view.begin; sample < view.end; ++sample) {
            const int column =
                std::min(static_cast<int>(state.View().ColumnOf(recording.Seconds(sample))), 332);
            // Rounding may put a sample on the edge on either side of it.
            const auto holds = [&](int one) {
                const ColumnSpan span = line.At(one);
                const double its = recording.Value(0, sample);
                return span.lowest <= its && its <= span.highest;
            };
            ASSERT_TRUE(holds(column) || holds(column - 1) || holds(column + 1)) << zoom << ", " << sample;
        }
        const SamplePiece::Extremes all = recording.ExtremesOf(0, 0, recording.End());
        for (const ColumnSpan& span : line.spans) {
            if (span.IsEmpty()) continue;
            ASSERT_GE(span.lowest, all.lowest);
            ASSERT_LE(span.highest, all.highest);
        }
    }
}

}  // namespace
}  // namespace plotvane
