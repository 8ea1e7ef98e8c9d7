#include "history/Recording.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace plotvane {
namespace {

constexpr std::uint16_t kAllDrawn = 0x0FFF;
constexpr std::int64_t kPiece = SamplePiece::kSamples;

// Each trace its own value, so that a mix-up of two shows.
Recording::Values ValuesFrom(double first) {
    Recording::Values values;
    for (double& value : values) value = first++;
    return values;
}

RecordedTraces TracesNamed(const std::string& name) {
    RecordedTraces traces;
    traces[0] = {true, 1, 0, false, "/min", name, 0.0, 6000.0};
    return traces;
}

void AddSeconds(Recording& recording, std::int64_t count) {
    for (std::int64_t i = 0; i < count; ++i)
        recording.Add(static_cast<double>(recording.End()), ValuesFrom(static_cast<double>(i)), kAllDrawn);
}

TEST(Recording, IsEmptyUntilTheFirstSample) {
    const Recording recording;
    EXPECT_TRUE(recording.IsEmpty());
    EXPECT_EQ(recording.Begin(), 0);
    EXPECT_EQ(recording.End(), 0);
}

TEST(Recording, KeepsTimeValuesAndWhatWasDrawn) {
    Recording recording;
    ASSERT_TRUE(recording.Add(0.5, ValuesFrom(100.0), 0x0801));
    EXPECT_EQ(recording.End(), 1);
    EXPECT_EQ(recording.Seconds(0), 0.5);
    EXPECT_EQ(recording.Value(0, 0), 100.0);
    EXPECT_EQ(recording.Value(11, 0), 111.0);
    EXPECT_TRUE(recording.IsDrawn(0, 0));
    EXPECT_FALSE(recording.IsDrawn(1, 0));
    EXPECT_TRUE(recording.IsDrawn(11, 0));
}

TEST(Recording, ForgetsEverythingWhenItBeginsAfresh) {
    Recording recording;
    recording.BeginStretch(TracesNamed("Engine speed"));
    AddSeconds(recording, kPiece + 1);
    recording.Begin("019");
    EXPECT_EQ(recording.Title(), "019");
    EXPECT_TRUE(recording.IsEmpty());
    EXPECT_TRUE(recording.Stretches().empty());
    recording.Add(7.0, ValuesFrom(1.0), kAllDrawn);
    EXPECT_EQ(recording.Seconds(0), 7.0);
}

TEST(Recording, CountsItsRunsSoThatOldSampleNumbersCanBeToldFromNewOnes) {
    Recording recording;
    const std::uint32_t before = recording.Run();
    recording.Begin("019");
    const std::uint32_t first = recording.Run();
    recording.Begin("019");
    EXPECT_NE(first, before);
    EXPECT_NE(recording.Run(), first);
}

TEST(Recording, BreaksTheLineAtAGapAndOnlyThere) {
    Recording recording;
    AddSeconds(recording, 2);
    recording.MarkGap();
    AddSeconds(recording, 2);
    EXPECT_FALSE(recording.IsBreak(1));
    EXPECT_TRUE(recording.IsBreak(2));
    EXPECT_FALSE(recording.IsBreak(3));
}

TEST(Recording, BeginsAStretchWithABreak) {
    Recording recording;
    recording.BeginStretch(TracesNamed("Engine speed"));
    AddSeconds(recording, 2);
    RecordedTraces other = TracesNamed("Road speed");
    other[0].field = 1;
    recording.BeginStretch(other);
    AddSeconds(recording, 1);
    EXPECT_EQ(recording.StretchOf(1).traces[0].name, "Engine speed");
    EXPECT_EQ(recording.StretchOf(2).traces[0].name, "Road speed");
    EXPECT_EQ(recording.StretchOf(2).first, 2);
    EXPECT_TRUE(recording.IsBreak(2));
}

TEST(Recording, JoinsTheLineAcrossNewLimitsAndNames) {
    Recording recording;
    recording.BeginStretch(TracesNamed("Engine speed"));
    AddSeconds(recording, 2);
    RecordedTraces wider = TracesNamed("Speed");
    wider[0].upper = 8000.0;
    recording.BeginStretch(wider);
    AddSeconds(recording, 1);
    EXPECT_EQ(recording.StretchOf(2).traces[0].upper, 8000.0);
    EXPECT_FALSE(recording.IsBreak(2));
}

TEST(Recording, BreaksTheLineWhereAnyTraceShowsSomethingElse) {
    const auto isBroken = [](const auto& change) {
        Recording recording;
        RecordedTraces traces = TracesNamed("Engine speed");
        recording.BeginStretch(traces);
        AddSeconds(recording, 1);
        change(traces);
        recording.BeginStretch(traces);
        AddSeconds(recording, 1);
        return recording.IsBreak(1);
    };
    EXPECT_TRUE(isBroken([](RecordedTraces& traces) { traces[0].group = 2; }));
    EXPECT_TRUE(isBroken([](RecordedTraces& traces) { traces[0].unit = "km/h"; }));
    EXPECT_TRUE(isBroken([](RecordedTraces& traces) { traces[0].isRatio = true; }));
    EXPECT_TRUE(isBroken([](RecordedTraces& traces) { traces[11].isActive = true; }));
}

TEST(Recording, GivesASampleWithoutAStretchOneThatShowsNothing) {
    Recording recording;
    AddSeconds(recording, 1);
    EXPECT_FALSE(recording.StretchOf(0).traces[0].isActive);
}

TEST(Recording, ReplacesAStretchThatHasGotNoSample) {
    Recording recording;
    recording.BeginStretch(TracesNamed("Engine speed"));
    recording.BeginStretch(TracesNamed("Road speed"));
    AddSeconds(recording, 1);
    ASSERT_EQ(recording.Stretches().size(), 1U);
    EXPECT_EQ(recording.StretchOf(0).traces[0].name, "Road speed");
}

TEST(Recording, DropsTheOldestStretchWithItsSamplesWhenThereAreTooMany) {
    Recording recording;
    for (int i = 0; i <= Recording::kMostStretches; ++i) {
        recording.BeginStretch(TracesNamed(std::to_string(i)));
        AddSeconds(recording, 3);
    }
    EXPECT_EQ(recording.Stretches().size(), static_cast<std::size_t>(Recording::kMostStretches));
    EXPECT_EQ(recording.Begin(), 3);
    EXPECT_EQ(recording.StretchOf(recording.Begin()).traces[0].name, "1");
}

TEST(Recording, HoldsTwoHoursAtTwentyASecondAndThenDropsTheOldest) {
    constexpr std::int64_t kTwoHours = 2 * 3600 * 20;
    Recording recording;
    AddSeconds(recording, kTwoHours);
    EXPECT_EQ(recording.Begin(), 0);
    AddSeconds(recording, kTwoHours);
    EXPECT_EQ(recording.End(), 2 * kTwoHours);
    EXPECT_GE(recording.End() - recording.Begin(), kTwoHours);
    EXPECT_GT(recording.Begin(), 0);
    EXPECT_EQ(recording.Seconds(recording.Begin()), static_cast<double>(recording.Begin()));
}

TEST(Recording, TakesAtMostSixteenMegabytes) {
    EXPECT_LE(Recording::kMostPieces * sizeof(SamplePiece), 16'000'000U);
}

TEST(Recording, KeepsTheStretchOfItsOldestSampleWhenOlderOnesAreDropped) {
    Recording recording;
    recording.BeginStretch(TracesNamed("Engine speed"));
    AddSeconds(recording, Recording::kMostPieces * kPiece);
    recording.BeginStretch(TracesNamed("Road speed"));
    AddSeconds(recording, 1);
    EXPECT_EQ(recording.Begin(), kPiece);
    EXPECT_EQ(recording.StretchOf(recording.Begin()).traces[0].name, "Engine speed");
    AddSeconds(recording, Recording::kMostPieces * kPiece);
    EXPECT_EQ(recording.Stretches().size(), 1U);
    EXPECT_EQ(recording.StretchOf(recording.Begin()).traces[0].name, "Road speed");
}

TEST(Recording, GoesOnWhereItWasWhenTheGivenTimeRunsBack) {
    Recording recording;
    for (const double seconds : {10.0, 20.0, 3.0, 4.5}) recording.Add(seconds, ValuesFrom(0.0), kAllDrawn);
    EXPECT_EQ(recording.Seconds(2), 20.0);
    EXPECT_EQ(recording.Seconds(3), 21.5);
    EXPECT_TRUE(recording.IsBreak(2));
    EXPECT_FALSE(recording.IsBreak(3));
}

TEST(Recording, TakesNoTimeAndNoValueThatIsNoNumberOrFarFromAny) {
    constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    Recording recording;
    recording.Add(2.0, ValuesFrom(0.0), kAllDrawn);
    Recording::Values values = ValuesFrom(1.0);
    values[3] = kNan;
    values[4] = -kInfinity;
    recording.Add(kNan, values, kAllDrawn);
    recording.Add(kInfinity, values, kAllDrawn);
    recording.Add(-2e9, values, kAllDrawn);  // 60 years
    EXPECT_EQ(recording.Seconds(3), 2.0);
    EXPECT_EQ(recording.Seconds(1), 2.0);
    EXPECT_EQ(recording.Seconds(2), 2.0);
    EXPECT_EQ(recording.Value(3, 1), 0.0);
    EXPECT_EQ(recording.Value(4, 1), 0.0);
    EXPECT_EQ(recording.Value(5, 1), 6.0);
}

TEST(Recording, FindsSamplesByTime) {
    Recording recording;
    for (const double seconds : {1.0, 2.0, 2.0, 4.0}) recording.Add(seconds, ValuesFrom(0.0), kAllDrawn);
    EXPECT_EQ(recording.FirstFrom(0.0), 0);
    EXPECT_EQ(recording.FirstFrom(2.0), 1);
    EXPECT_EQ(recording.FirstFrom(2.5), 3);
    EXPECT_EQ(recording.FirstFrom(5.0), 4);
    EXPECT_EQ(recording.FirstFrom(2.0, 2), 2);  // looked for from the third on
    EXPECT_EQ(recording.FirstFrom(2.5, 1), 3);
    EXPECT_EQ(recording.FirstFrom(5.0, 4), 4);
    EXPECT_EQ(recording.LastUntil(0.0), 0);
    EXPECT_EQ(recording.LastUntil(1.5), 0);
    EXPECT_EQ(recording.LastUntil(2.0), 2);
    EXPECT_EQ(recording.LastUntil(9.0), 3);
}

// A column of the picture must never lose a peak: compared with reading every sample, for ranges of any
// length that begin and end anywhere, over dropped and unfinished pieces.
TEST(Recording, FindsTheExtremesOfAnyRangeAsReadingEverySampleDoes) {
    std::mt19937 random(20261122);
    std::uniform_real_distribution<double> value(-1000.0, 1000.0);
    const auto pick = [&](std::int64_t from, std::int64_t to) {
        return std::uniform_int_distribution<std::int64_t>(from, to)(random);
    };
    Recording recording;
    std::vector<Recording::Values> added;
    for (std::int64_t i = 0; i < Recording::kMostPieces * kPiece + 3 * kPiece + 777; ++i) {
        Recording::Values values;
        for (double& one : values) one = value(random);
        added.push_back(values);
        recording.Add(static_cast<double>(i), values, kAllDrawn);
    }
    for (int i = 0; i < 400; ++i) {
        const std::int64_t longest = i % 2 == 0 ? 300 : 20'000;
        const std::int64_t begin = pick(recording.Begin(), recording.End() - 1);
        const std::int64_t end = pick(begin + 1, std::min(recording.End(), begin + longest));
        const int trace = i % kSlotCount;
        double lowest = 1e9;
        double highest = -1e9;
        for (std::int64_t at = begin; at < end; ++at) {
            const double one = added[static_cast<std::size_t>(at)][static_cast<std::size_t>(trace)];
            lowest = std::min(lowest, one);
            highest = std::max(highest, one);
        }
        const SamplePiece::Extremes found = recording.ExtremesOf(trace, begin, end);
        ASSERT_EQ(found.lowest, lowest) << begin << ".." << end;
        ASSERT_EQ(found.highest, highest) << begin << ".." << end;
    }
}

TEST(Recording, SeesASpikeOfOneSampleAmongTwoHours) {
    Recording recording;
    constexpr std::int64_t kSpike = 100'003;
    for (std::int64_t i = 0; i < 144'000; ++i)
        recording.Add(static_cast<double>(i) / 20.0, ValuesFrom(i == kSpike ? 5000.0 : 10.0), kAllDrawn);
    EXPECT_EQ(recording.ExtremesOf(0, 0, recording.End()).highest, 5000.0);
    EXPECT_EQ(recording.ExtremesOf(0, kSpike + 1, recording.End()).highest, 10.0);
}

}  // namespace
}  // namespace plotvane
