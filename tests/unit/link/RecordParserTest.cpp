#include "link/RecordParser.h"

#include <gtest/gtest.h>

#include <string>

namespace plotvane {
namespace {

std::string Empty(int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += "G000,,,,";
    return text;
}

class RecordParserTest : public testing::Test {
protected:
    bool Parse(const std::string& items) { return ParseRecord("X," + items, 2, slots, state); }

    // A first field, and eleven empty slots.
    bool ParseFirst(const std::string& field) { return Parse(field + Empty(11)); }

    SlotTable slots;
    RunState state;
};

TEST_F(RecordParserTest, ReadsTwelveFieldsOfTheNormalForm) {
    EXPECT_TRUE(
        Parse("G001,F0,780,/min,G001,F1,90.0,\xB0"
              "C,G001,F2,50, km/h,G001,F3,4.2,l/h," +
              Empty(8)));
    EXPECT_FALSE(state.tenChannels);
    EXPECT_EQ(slots[0].group, 1);
    EXPECT_EQ(slots[0].field, 0);
    EXPECT_EQ(slots[0].value, 780.0);
    EXPECT_EQ(slots[0].unit, "/min");
    EXPECT_EQ(slots[1].unit,
              "\xB0"
              "C");
    EXPECT_EQ(slots[2].field, 2);
    EXPECT_EQ(slots[2].unit, "km/h");  // one blank dropped
    EXPECT_EQ(slots[3].value, 4.2);
    for (int slot = 4; slot < kSlotCount; ++slot) EXPECT_EQ(slots[slot].group, 0) << slot;
}

TEST_F(RecordParserTest, LeavesAnEmptySlotEmptyAndReadsTheRest) {
    EXPECT_TRUE(Parse("G000,,,,G002,F1,7,V," + Empty(10)));
    EXPECT_EQ(slots[0].group, 0);
    EXPECT_EQ(slots[0].unit, "");
    EXPECT_EQ(slots[1].group, 2);
    EXPECT_EQ(slots[1].value, 7.0);
}

TEST_F(RecordParserTest, ReadsTenChannelsOfTheObdForm) {
    std::string items = "GZER,F0,12,,GZER,F1,128,,";
    for (char digit = '2'; digit <= '9'; ++digit) items += std::string("GZER,F") + digit + ",0,,";
    slots[3].group = 5;
    slots[3].unit = "V";
    EXPECT_TRUE(Parse(items + "G007,F2,1.5,ms," + Empty(7)));
    EXPECT_TRUE(state.tenChannels);
    EXPECT_FALSE(state.hadTenChannels);
    EXPECT_EQ(slots.channelValues[0], 12.0);
    EXPECT_EQ(slots.channelValues[1], 128.0);
    EXPECT_EQ(slots[3].group, 0);
    EXPECT_EQ(slots[3].unit, "");
    EXPECT_EQ(slots[4].group, 7);
    EXPECT_EQ(slots[4].value, 1.5);
    EXPECT_EQ(slots[5].group, 0);
}

TEST_F(RecordParserTest, FindsAnObdItemAfterOtherText) {
    std::string items = "GZER,F0,12,,--GZER,F1,128,,";
    for (char digit = '2'; digit <= '9'; ++digit) items += std::string("GZER,F") + digit + ",0,,";
    EXPECT_TRUE(Parse(items + Empty(8)));
    EXPECT_EQ(slots.channelValues[1], 128.0);
}

TEST_F(RecordParserTest, RemembersTheFormOfTheRecordBefore) {
    std::string obd;
    for (int i = 0; i < 10; ++i) obd += "GZER,F0,1,,";
    EXPECT_TRUE(Parse(obd + Empty(8)));
    EXPECT_TRUE(Parse(Empty(12)));
    EXPECT_TRUE(state.hadTenChannels);
    EXPECT_FALSE(state.tenChannels);
}

TEST_F(RecordParserTest, TakesTheValueOfNumericTextOnly) {
    const struct {
        const char* text;
        double value;
    } kTexts[] = {{"12.5", 12.5}, {"-3", -3.0},  {"1e3", 0.0}, {"n/a", 0.0},   {" 780", 0.0},
                  {"-", 0.0},     {"", 0.0},     {".", 0.0},   {"1.2.3", 1.2}, {"1-2", 1.0},
                  {"+1", 0.0},    {"-.5", -0.5}, {"0x10", 0.0}};
    for (const auto& [text, value] : kTexts) {
        EXPECT_TRUE(ParseFirst(std::string("G001,F0,") + text + ",V,")) << text;
        EXPECT_EQ(slots[0].value, value) << text;
    }
}

TEST_F(RecordParserTest, AcceptsTextsOfAHundredCharactersAndNoMore) {
    const std::string hundred(100, '1');
    EXPECT_TRUE(ParseFirst("G001,F0," + hundred + ",V,"));
    EXPECT_FALSE(ParseFirst("G001,F0,1" + hundred + ",V,"));
    EXPECT_TRUE(ParseFirst("G001,F0,1," + hundred + ","));
    EXPECT_EQ(slots[0].unit, hundred);
    EXPECT_FALSE(ParseFirst("G001,F0,1,1" + hundred + ","));
}

TEST_F(RecordParserTest, FindsTheFirstTagAmongFortyOneCharacters) {
    EXPECT_TRUE(ParseFirst(std::string(40, '-') + "G001,F0,5,V,"));
    EXPECT_EQ(slots[0].value, 5.0);
    EXPECT_FALSE(ParseFirst(std::string(41, '-') + "G001,F0,5,V,"));
}

TEST_F(RecordParserTest, TheSearchForATagBeginsWhereTheLastFieldEnded) {
    const std::string next = "G002,F1,7,V," + Empty(10);
    // A field ends after its last comma, an empty one after its third.
    EXPECT_TRUE(Parse("G001,F0,5,V," + std::string(40, '-') + next));
    EXPECT_FALSE(Parse("G001,F0,5,V," + std::string(41, '-') + next));
    EXPECT_TRUE(Parse("G000,,,," + std::string(39, '-') + next));
    EXPECT_EQ(slots[1].value, 7.0);
    EXPECT_FALSE(Parse("G000,,,," + std::string(40, '-') + next));
}

TEST_F(RecordParserTest, AnEmptySlotForgetsWhatItHeld) {
    EXPECT_TRUE(ParseFirst("G001,F2,5,V,"));
    EXPECT_TRUE(Parse(Empty(12)));
    EXPECT_EQ(slots[0].group, 0);
    EXPECT_EQ(slots[0].field, 0);
    EXPECT_EQ(slots[0].value, 0.0);
    EXPECT_EQ(slots[0].unit, "");
}

TEST_F(RecordParserTest, DropsOneBlankInFrontOfTheUnit) {
    EXPECT_TRUE(ParseFirst("G001,F0,5,  V,"));
    EXPECT_EQ(slots[0].unit, " V");
    EXPECT_TRUE(ParseFirst("G001,F0,5, ,"));
    EXPECT_EQ(slots[0].unit, "");
    EXPECT_TRUE(ParseFirst("G001,F0,5,,"));
    EXPECT_EQ(slots[0].unit, "");
}

TEST_F(RecordParserTest, AfterOtherTextOnlyThreeDigitsAndACommaCount) {
    EXPECT_TRUE(ParseFirst("--G001,F0,5,V,"));
    EXPECT_EQ(slots[0].group, 1);
    for (const char* tag : {"Gx01,", "G0x1,", "G01x,", "G0011", "G01,F"}) {
        EXPECT_FALSE(ParseFirst(std::string("--") + tag + "F0,5,V,")) << tag;
    }
}

TEST_F(RecordParserTest, RejectsMalformedFields) {
    const char* const kMalformed[] = {
        "G001,X0,5,V,",  // no "F"
        "G001,F,5,V,",   // no digit
        "G001,Fx,5,V,",
        "G12,F0,5,V,",  // a tag of two digits: the comma counts as the third
    };
    for (const char* field : kMalformed) EXPECT_FALSE(ParseFirst(field)) << field;
}

TEST_F(RecordParserTest, RejectsRecordsThatEndEarly) {
    const std::string whole = "G001,F0,780,/min," + Empty(10) + "G003,F3,1,V,";
    ASSERT_TRUE(Parse(whole));
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_FALSE(Parse(whole.substr(0, length))) << length;
    }
}

TEST_F(RecordParserTest, KeepsWhatWasReadBeforeTheFault) {
    EXPECT_FALSE(Parse("G001,F0,780,/min,G001,F1,oops"));
    EXPECT_EQ(slots[0].value, 780.0);
    EXPECT_EQ(slots[1].group, 1);
}

TEST_F(RecordParserTest, TakesGroupNumbersOutsideTheTables) {
    EXPECT_TRUE(ParseFirst("G999,F9,5,V,"));
    EXPECT_EQ(slots[0].group, 999);
    EXPECT_EQ(slots[0].field, 9);
}

TEST_F(RecordParserTest, TakesAPositionBeyondTheText) {
    EXPECT_FALSE(ParseRecord("X", 2, slots, state));
    EXPECT_FALSE(ParseRecord("", 0, slots, state));
}

}  // namespace
}  // namespace plotvane
