#include "history/CsvExport.h"

#include <gtest/gtest.h>

#include "tests/unit/history/Drive.h"

namespace plotvane {
namespace {

std::string AllOf(CsvExport csv, int samplesAtOnce) {
    std::string text;
    while (csv.Append(text, samplesAtOnce) == CsvExport::Next::More) {
    }
    return text;
}

TEST(CsvExport, HasAHeaderAndALineForEachSample) {
    Recording recording;
    test::Record(recording, {10.0, 0.1 + 0.2, -1e-7});
    const std::string expected =
        "Time (s),Speed (/min)\r\n"
        "0.000,10\r\n"
        "1.000,0.3\r\n"
        "2.000,-1e-07\r\n";
    for (const int samplesAtOnce : {1, 2, 3, 100})
        EXPECT_EQ(AllOf(CsvExport(recording, 0, 3), samplesAtOnce), expected) << samplesAtOnce;
    EXPECT_EQ(AllOf(CsvExport(recording, 1, 2), 9), "Time (s),Speed (/min)\r\n1.000,0.3\r\n");
}

TEST(CsvExport, WritesUtf8AndQuotesWhatNeedsIt) {
    Recording recording;
    RecordedTraces traces;
    traces[0] = {true,
                 1,
                 0,
                 false,
                 "\xB0"
                 "C",
                 "Oil, \"sump\"",
                 0.0,
                 1.0};
    traces[1] = {true, 1, 1, false, "", "Two\r\nlines", 0.0, 1.0};
    traces[2] = {true, 1, 2, false, "\x80", "", 0.0, 1.0};
    recording.BeginStretch(traces);
    test::Record(recording, {1.0});
    EXPECT_EQ(AllOf(CsvExport(recording, 0, 1), 9),
              "Time (s),\"Oil, \"\"sump\"\" (\xC2\xB0"
              "C)\",\"Two\r\nlines\",001-3 (\xE2\x82\xAC)\r\n"
              "0.000,1,2,3\r\n");
}

TEST(CsvExport, HasAColumnForEachFieldAndLeavesTheOthersEmpty) {
    Recording recording;
    test::Record(recording, {1.0});
    RecordedTraces other = test::SpeedAlone();
    other[0].group = 7;
    other[0].name = "Load";
    recording.BeginStretch(other);
    test::Record(recording, {2.0});
    recording.BeginStretch(test::SpeedAlone());
    test::Record(recording, {3.0});
    EXPECT_EQ(AllOf(CsvExport(recording, 0, 3), 9),
              "Time (s),Speed (/min),Load (/min)\r\n0.000,1,\r\n1.000,,2\r\n2.000,3,\r\n");
}

TEST(CsvExport, TellsHowFarItIs) {
    Recording recording;
    test::Record(recording, std::vector<double>(200));
    CsvExport csv(recording, 0, 200);
    std::string text;
    EXPECT_EQ(csv.Percent(), 0);
    EXPECT_EQ(csv.Append(text, 50), CsvExport::Next::More);
    EXPECT_EQ(csv.Percent(), 25);
    EXPECT_EQ(csv.Append(text, 150), CsvExport::Next::Done);
    EXPECT_EQ(csv.Percent(), 100);
    EXPECT_EQ(CsvExport(recording, 7, 7).Percent(), 100);
}

TEST(CsvExport, SaysWhenItsSamplesAreGone) {
    Recording recording;
    test::Record(recording, std::vector<double>(10));
    CsvExport csv(recording, 0, 10);
    CsvExport other(recording, 0, 10);
    std::string text;
    EXPECT_EQ(csv.Append(text, 5), CsvExport::Next::More);
    test::Record(recording, std::vector<double>(Recording::kMostPieces * SamplePiece::kSamples));
    EXPECT_EQ(csv.Append(text, 5), CsvExport::Next::Gone);
    recording.Begin("other");
    EXPECT_EQ(other.Append(text, 5), CsvExport::Next::Gone);
}

}  // namespace
}  // namespace plotvane
