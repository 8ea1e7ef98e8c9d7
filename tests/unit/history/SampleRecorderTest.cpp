#include "history/SampleRecorder.h"

#include <gtest/gtest.h>

#include "scaling/DefaultScaling.h"
#include "tests/support/TempFolder.h"
#include "tests/unit/history/Drive.h"

namespace plotvane {
namespace {

using Clock = SampleRecorder::Clock;

struct Names : FieldNames {
    std::string NameOf(int group, int field) const override {
        ++asked;
        return std::to_string(group) + "/" + std::to_string(field);
    }
    mutable int asked = 0;
};

class SampleRecorderTest : public testing::Test {
protected:
    SampleRecorderTest() {
        m_fields[0] = {true, 3, 1, false, "/min", 0.0, 6000.0};
        m_recorder.Begin("019", Clock::OfLog);
    }
    void Take(double seconds) { m_recorder.Take(seconds, m_fields, test::ValuesFrom(1.0), test::kAllDrawn); }
    std::size_t Stretches() const { return m_recording.Stretches().size(); }

    Names m_names;
    Recording m_recording;
    SampleRecorder m_recorder{m_recording, m_names};
    ShownFields m_fields;
};

TEST_F(SampleRecorderTest, KeepsTheTimesOfALog) {
    Take(100.5);
    Take(101.0);
    EXPECT_EQ(m_recording.Seconds(0), 100.5);
    EXPECT_EQ(m_recording.Seconds(1), 101.0);
}

TEST_F(SampleRecorderTest, CountsLiveTimeFromTheFirstSample) {
    m_recorder.Begin("019", Clock::FromFirstSample);
    Take(5000.25);
    Take(5000.5);
    EXPECT_EQ(m_recording.Seconds(0), 0.0);
    EXPECT_EQ(m_recording.Seconds(1), 0.25);
}

TEST_F(SampleRecorderTest, BeginsAfreshWithAnotherRun) {
    Take(1.0);
    m_recorder.Begin("020", Clock::OfLog);
    EXPECT_EQ(m_recording.Title(), "020");
    EXPECT_TRUE(m_recording.IsEmpty());
    Take(2.0);
    EXPECT_EQ(m_recording.StretchOf(0).traces[0].name, "3/1");
}

TEST_F(SampleRecorderTest, TakesWhatTheSlotsShow) {
    Take(1.0);
    EXPECT_EQ(m_recording.StretchOf(0).traces[0],
              (RecordedTrace{true, 3, 1, false, "/min", "3/1", 0.0, 6000.0}));
    EXPECT_EQ(m_recording.StretchOf(0).traces[1], RecordedTrace{});
    EXPECT_EQ(m_names.asked, 1);
}

TEST_F(SampleRecorderTest, BeginsAStretchOnlyWhereSomethingChanges) {
    Take(1.0);
    Take(2.0);
    EXPECT_EQ(Stretches(), 1U);
    std::size_t expected = 1;
    const auto expectAnother = [&](const char* what) {
        Take(3.0);
        Take(4.0);
        EXPECT_EQ(Stretches(), ++expected) << what;
    };
    m_fields[0].upper = 7000.0;
    expectAnother("upper limit");
    m_fields[0].lower = -1.0;
    expectAnother("lower limit");
    m_fields[0].unit = "km/h";
    expectAnother("unit");
    m_fields[0].field = 2;
    expectAnother("field");
    m_fields[0].group = 4;
    expectAnother("group");
    m_fields[0].isRatio = true;
    expectAnother("ratio");
    m_fields[11] = {true, 9, 0, false, "", 0.0, 1.0};
    expectAnother("another slot");
    m_fields[0].isActive = false;
    expectAnother("slot emptied");
}

TEST_F(SampleRecorderTest, SeesEachLetterOfAUnit) {
    std::size_t stretches = 0;
    double seconds = 0.0;
    for (std::size_t length = 1; length <= 12; ++length) {
        const std::string unit(length, 'a');
        for (std::size_t at = 0; at < length; ++at) {
            std::string other = unit;
            other[at] = 'b';
            for (const std::string& shown : {unit, other}) {
                m_fields[0].unit = shown;
                Take(seconds++);
                EXPECT_EQ(Stretches(), ++stretches) << shown;
                Take(seconds++);
                EXPECT_EQ(Stretches(), stretches) << shown;
            }
        }
    }
}

TEST_F(SampleRecorderTest, PassesAGapOn) {
    Take(1.0);
    m_recorder.MarkGap();
    Take(2.0);
    EXPECT_TRUE(m_recording.IsBreak(1));
}

TEST(ShownFields, OfSlotsHaveTheRangesOfTheirModule) {
    const test::TempFolder folder;
    RunState state;
    DefaultScaling defaults(folder.Path());
    ModuleScaling ranges(folder.Path(), defaults, state);
    ranges.SetMin(5, 2, -40);
    ranges.SetMax(5, 2, 150);
    SlotTable slots;
    slots[0].group = 0;
    slots[6].group = 5;
    slots[6].field = 2;
    slots[6].unit = "x";
    slots[6].value = 12.5;
    const ShownFields fields = FieldsOfSlots(slots, ranges, 1U << 6);
    EXPECT_FALSE(fields[0].isActive);
    EXPECT_TRUE(fields[6].isActive);
    EXPECT_EQ(fields[6].group, 5);
    EXPECT_EQ(fields[6].field, 2);
    EXPECT_EQ(fields[6].unit, "x");
    EXPECT_EQ(fields[6].lower, -40.0);
    EXPECT_EQ(fields[6].upper, 150.0);
    EXPECT_TRUE(fields[6].isRatio);
    EXPECT_EQ(ValuesOfSlots(slots)[6], 12.5);
    EXPECT_FALSE(FieldsOfSlots(slots, ranges, 0)[6].isRatio);
}

TEST(ShownFields, OfChannelsAreTenFromOneBelowToOneAboveAByte) {
    const ShownFields fields = FieldsOfChannels();
    EXPECT_EQ(fields[9].field, 9);
    EXPECT_EQ(fields[9].lower, -1.0);
    EXPECT_EQ(fields[9].upper, 256.0);
    EXPECT_TRUE(fields[9].isActive);
    EXPECT_FALSE(fields[10].isActive);
    SlotTable slots;
    slots.channelValues[9] = 77.0;
    EXPECT_EQ(ValuesOfChannels(slots)[9], 77.0);
    EXPECT_EQ(ValuesOfChannels(slots)[10], 0.0);
}

}  // namespace
}  // namespace plotvane
