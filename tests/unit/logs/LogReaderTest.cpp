#include "logs/LogReader.h"

#include <gtest/gtest.h>

#include "tests/unit/logs/LogReaderFixture.h"

namespace plotvane {
namespace {

using test::Empty;
using test::kAdvancedHeader;
using test::kAdvancedRows;
using test::kClassicHeader;
using test::kClassicRecords;
using test::kClassicRows;
using test::kObdHeader;
using test::kObdRows;

class LogReaderTest : public test::LogReaderFixture {
protected:
    // A classic log with these three group cells and one row.
    void OpenGroups(std::string_view a, std::string_view b, std::string_view c, std::string_view row) {
        Open(FIRST_LINE "ABC,\n\n,A," + std::string(a) + ",,,,B," + std::string(b) + ",,,,C," +
                 std::string(c) +
                 "\n,,,,,,,,,,,,,,,\n,,,,,,,,,,,,,,,\nm,t,a0,a1,a2,a3,t,b0,b1,b2,b3,t,c0,c1,c2,c3\n",
             row);
    }
};

TEST_F(LogReaderTest, ReadsAClassicLog) {
    Open(kClassicHeader, kClassicRows);
    EXPECT_EQ(NextRecord(), kClassicRecords[0]);
    ExpectStamps(0.0, 0.12, 0.0);
    EXPECT_EQ(NextRecord(), kClassicRecords[1]);
    ExpectStamps(0.5, 0.62, 0.0);
    EXPECT_EQ(NextRecord(), kClassicRecords[2]);
    ExpectStamps(3.5, 3.62, 0.0);
    EXPECT_FALSE(m_state.endOfLog);
    EXPECT_EQ(Next(), LogRow::Ended);
    EXPECT_TRUE(m_state.endOfLog);
    EXPECT_EQ(m_record.Text(), "");
}

TEST_F(LogReaderTest, ReadsTheTenChannelGroupWithItsTime) {
    Open(test::kTenChannelLog);
    EXPECT_EQ(NextRecord(), test::kTenChannelRecord);
    ExpectStamps(0.0, 0.3, 0.6);
    EXPECT_EQ(Next(), LogRow::Ended);
}

TEST_F(LogReaderTest, TakesTheTimeOfTheTenChannelGroupForRowA) {
    std::string log(test::kTenChannelLog);
    log.replace(log.find("0,0.00,1,"), 9, "0,7.25,1,");
    Open(log);
    EXPECT_EQ(NextRecord(), test::kTenChannelRecord);
    ExpectStamps(7.25, 0.3, 0.6);
}

TEST_F(LogReaderTest, ReadsAnAdvancedLog) {
    Open(kAdvancedHeader, kAdvancedRows);
    EXPECT_EQ(NextRecord(), "038-906-019-FT,G001,F0,780,/min,G001,F1,90.0," DEGREES_C
                            ",G001,F3,0,km/h,G003,F0,780,/min,G003,F2,240.5,mg/str," +
                                Empty(7));
    ExpectStamps(0.0, 0.0, 0.0);
    EXPECT_EQ(NextRecord(), "038-906-019-FT,G001,F0,1240,/min,G001,F1,90.0," DEGREES_C
                            ",G001,F3,12,km/h,G003,F0,1240,/min,G003,F2,310.0,mg/str," +
                                Empty(7));
    ExpectStamps(0.5, 0.0, 0.0);
    EXPECT_EQ(NextRecord(), "038-906-019-FT,G001,F0,2110,/min,G001,F1,91.8," DEGREES_C
                            ",G001,F3,31,km/h,G003,F0,2110,/min,G003,F2,322.5,mg/str," +
                                Empty(7));
    ExpectStamps(3.5, 0.0, 0.0);
    EXPECT_EQ(Next(), LogRow::Ended);
}

TEST_F(LogReaderTest, StepsOverAnAdvancedSlotWithoutGroup) {
    std::string header(kAdvancedHeader);
    header.replace(header.find("G001,F1"), 4, "G000");
    header.replace(header.find("G001,F0"), 4, "G000");
    Open(header, kAdvancedRows);
    EXPECT_EQ(NextRecord(), "038-906-019-FT," + Empty(2) +
                                "G001,F3,0,km/h,G003,F0,780,/min,G003,F2,240.5,mg/str," + Empty(7));
}

TEST_F(LogReaderTest, ReadsAnObdLog) {
    Open(kObdHeader, kObdRows);
    EXPECT_EQ(NextRecord(), "OBD.LBL,G012,F0,780,/min,G013,F0,0,km/h,G005,F0,90," DEGREES_C "," + Empty(9));
    ExpectStamps(0.0, 0.0, 0.0);
    EXPECT_EQ(NextRecord(), "OBD.LBL,G012,F0,1240,/min,G013,F0,12,km/h,G005,F0,90," DEGREES_C "," + Empty(9));
    ExpectStamps(0.5, 0.0, 0.0);
    EXPECT_EQ(NextRecord(), "OBD.LBL,G012,F0,2110,/min,G013,F0,31,km/h,G005,F0,91," DEGREES_C "," + Empty(9));
    ExpectStamps(3.5, 0.0, 0.0);
    EXPECT_EQ(Next(), LogRow::Ended);
}

TEST_F(LogReaderTest, ReadsAnObdLogWithACommaAfterItsUnits) {
    std::string header(kObdHeader);
    header.insert(header.size() - 1, ",");
    Open(header, kObdRows);
    EXPECT_EQ(Records().size(), 3u);
    EXPECT_EQ(m_last, LogRow::Ended);
}

TEST_F(LogReaderTest, ReadsAnObdLogWhoseHeadGoesOverMoreLines) {
    Open(",,,,00:00:00\nOBD\n\n- 012- 000- 000- 000\n(/min)\n", ",0,780,,,,,,,\n");
    EXPECT_EQ(NextRecord(), "OBD.LBL,G012,F0,780,/min," + Empty(11));
    ExpectStamps(0.0, 0.0, 0.0);
    EXPECT_EQ(Next(), LogRow::Ended);
}

// Strictly, the rows of the format begin right after the last unit.
TEST_F(LogReaderTest, ReadsTheFirstRowOfAnObdLogFromTheLineOfTheUnits) {
    Open(FIRST_LINE "OBD\n- 012- 000- 000- 000\n(/min),0.5,780\n", "1,0.75,790\n");
    EXPECT_EQ(NextRecord(), "OBD.LBL,G012,F0,780,/min," + Empty(11));
    ExpectStamps(0.5, 0.0, 0.0);
    EXPECT_EQ(NextRecord(), "OBD.LBL,G012,F0,790,/min," + Empty(11));
    ExpectStamps(0.75, 0.0, 0.0);
    EXPECT_EQ(Next(), LogRow::Ended);
}

TEST_F(LogReaderTest, ReadsAnObdLogWithTextAfterItsLastUnit) {
    for (const std::string_view after : {",", ",time,none", " rpm", ", 1"}) {
        Open(FIRST_LINE "OBD\n- 012- 000- 000- 000\n(/min)" + std::string(after) + "\n", "0,0.50,780\n");
        EXPECT_EQ(NextRecord(), "OBD.LBL,G012,F0,780,/min," + Empty(11)) << after;
        ExpectStamps(0.5, 0.0, 0.0);
    }
}

TEST_F(LogReaderTest, StepsOverAnObdSlotWithoutIdentifier) {
    Open(FIRST_LINE
         "OBD\n"
         "m,t,PID- 000,t,PID- 001,t,PID- abc,t,PID- 999\n"
         "m,t,none,t,Status (bits),t,none,t,Last (V)\n",
         "0,1.5,1,1.6,50,1.7,3,1.8,12.5\n");
    EXPECT_EQ(NextRecord(), "OBD.LBL,G000,,,,G001,F0,50,bits,G000,,,,G999,F0,12.5,V," + Empty(8));
    ExpectStamps(1.5, 0.0, 0.0);
}

TEST_F(LogReaderTest, FindsRowBAfterARowAWithoutGroup) {
    OpenGroups("none", "'003", "none", "0,1,2,3,4,5,0.12,780,240.5,238.0,12.5,,,,,\n");
    EXPECT_EQ(
        NextRecord(),
        "ABC," + Empty(4) + "G003,F0,780,b0,G003,F1,240.5,b1,G003,F2,238.0,b2,G003,F3,12.5,b3," + Empty(4));
    ExpectStamps(0.0, 0.12, 0.0);
}

// Known and kept: the reader skips four columns for row B, which has five, so it reads all of row C one
// column early.
TEST_F(LogReaderTest, ReadsRowCOneColumnEarlyAfterARowBWithoutGroup) {
    OpenGroups("'001", "none", "'005", "0,1.5,a,b,c,d,6,7,8,9,10,11,12,13,14,15\n");
    EXPECT_EQ(NextRecord(), "ABC,G001,F0,a,a0,G001,F1,b,a1,G001,F2,c,a2,G001,F3,d,a3," + Empty(4) +
                                "G005,F0,11,c0,G005,F1,12,c1,G005,F2,13,c2,G005,F3,14,c3,");
    ExpectStamps(1.5, 0.0, 10.0);
}

TEST_F(LogReaderTest, ReadsRowCTwoColumnsEarlyAfterTwoRowsWithoutGroup) {
    OpenGroups("none", "none", "'005", "0,1,2,3,4,5,6,7,8,9,10,11,12,13,14,15\n");
    EXPECT_EQ(NextRecord(), "ABC," + Empty(8) + "G005,F0,10,c0,G005,F1,11,c1,G005,F2,12,c2,G005,F3,13,c3,");
    ExpectStamps(0.0, 0.0, 9.0);
}

TEST_F(LogReaderTest, WritesTheNameWithDashesForBlanks) {
    Open(FIRST_LINE
         "A  B ,\n\n,A,none,,,,B,none,,,,C,none\n,,,,,,,,,,,,,,,\n,,,,,,,,,,,,,,,\n,,,,,,,,,,,,,,,\n",
         "0,,,,,,,,,,,,,,,\n");
    EXPECT_EQ(m_reader.ModuleName(), "A  B ");
    EXPECT_EQ(NextRecord(), "A--B-," + Empty(12));
}

TEST_F(LogReaderTest, CutsALongNameInTheRecordsToo) {
    OpenGroups("'001", "none", "none", "");
    std::string log(test::BytesOf(m_folder / "x.csv"));
    log.replace(log.find("ABC,"), 4, "038 906 019 ABCDEFG,");
    Open(log, "0,0,1,2,3,4\n");
    EXPECT_EQ(NextRecord().substr(0, 21), "038-906-019-ABC,G001,");
}

TEST_F(LogReaderTest, WritesGroupsWithThreeDigits) {
    OpenGroups("'009", "'099", "'100", "0,0,a,b,c,d,0,e,f,g,h,0,i,j,k,l\n");
    EXPECT_EQ(
        NextRecord(),
        "ABC,G009,F0,a,a0,G009,F1,b,a1,G009,F2,c,a2,G009,F3,d,a3,G099,F0,e,b0,G099,F1,f,b1,G099,F2,g,b2,"
        "G099,F3,h,b3,G100,F0,i,c0,G100,F1,j,c1,G100,F2,k,c2,G100,F3,l,c3,");
}

TEST_F(LogReaderTest, WritesAGroupOfTwoDigitsWithOneZero) {
    OpenGroups("'010", "none", "none", "0,0,a,b,c,d\n");
    EXPECT_EQ(NextRecord(), "ABC,G010,F0,a,a0,G010,F1,b,a1,G010,F2,c,a2,G010,F3,d,a3," + Empty(8));
}

TEST_F(LogReaderTest, KeepsValueTextsAsTheyStand) {
    OpenGroups("'001", "none", "none", "0,0, 780,-,1e3,\"x\"\n");
    EXPECT_EQ(NextRecord(), "ABC,G001,F0, 780,a0,G001,F1,-,a1,G001,F2,1e3,a2,G001,F3,\"x\",a3," + Empty(8));
}

TEST_F(LogReaderTest, ReadsRowsWithAndWithoutACommaAtTheirEnd) {
    OpenGroups("'001", "'002", "'003",
               "0,0,a,b,c,d,0,e,f,g,h,0,i,j,k,l\n"
               "1,1,a,b,c,d,0,e,f,g,h,0,i,j,k,l,\n"
               "2,2,a,b,c,d,0,e,f,g,h,0,i,j,k,l,and,more\n"
               "3,3,a,b,c,d,0,e,f,g,h,0,i,j,k,l\n");
    const std::string record =
        "ABC,G001,F0,a,a0,G001,F1,b,a1,G001,F2,c,a2,G001,F3,d,a3,G002,F0,e,b0,G002,F1,f,b1,G002,F2,g,b2,"
        "G002,F3,h,b3,G003,F0,i,c0,G003,F1,j,c1,G003,F2,k,c2,G003,F3,l,c3,";
    for (int row = 0; row < 4; ++row) {
        EXPECT_EQ(NextRecord(), record);
        ExpectStamps(row, 0.0, 0.0);
    }
    EXPECT_EQ(Next(), LogRow::Ended);
}

TEST_F(LogReaderTest, StepsOverEmptyLines) {
    OpenGroups("'001", "none", "none", "\n\n0,0,a,b,c,d\n\n\n1,1,a,b,c,d\n\n");
    EXPECT_EQ(Records().size(), 2u);
    EXPECT_EQ(m_last, LogRow::Ended);
    ExpectStamps(1.0, 0.0, 0.0);
}

TEST_F(LogReaderTest, ReadsLineEndsOfTheHost) {
    std::string log;
    for (const char c : std::string(kClassicHeader) + std::string(kClassicRows)) {
        if (c == '\n') log += '\r';
        log += c;
    }
    Open(log);
    for (const auto record : kClassicRecords) EXPECT_EQ(NextRecord(), record);
    EXPECT_EQ(Next(), LogRow::Ended);
}

TEST_F(LogReaderTest, UsesALastRowThatTheFileEnds) {
    OpenGroups("'001", "none", "none", "0,0,a,b,c,d\n1,1,e,f,g,h");
    EXPECT_EQ(NextRecord(), "ABC,G001,F0,a,a0,G001,F1,b,a1,G001,F2,c,a2,G001,F3,d,a3," + Empty(8));
    EXPECT_FALSE(m_state.endOfLog);
    EXPECT_EQ(NextRecord(), "ABC,G001,F0,e,a0,G001,F1,f,a1,G001,F2,g,a2,G001,F3,h,a3," + Empty(8));
    EXPECT_TRUE(m_state.endOfLog);
}

TEST_F(LogReaderTest, ReadsTimesThatAreNoNumbersAsZero) {
    for (const auto& [text, seconds] : {std::pair{"nan", 0.0},
                                        {"inf", 0.0},
                                        {"-inf", 0.0},
                                        {"1e999", 0.0},
                                        {"x", 0.0},
                                        {"", 0.0},
                                        {"-5", -5.0},
                                        {" 2.5", 2.5},
                                        {"1,5", 1.0}}) {
        OpenGroups("'001", "none", "none", "0," + std::string(text) + ",a,b,c,d\n");
        EXPECT_EQ(Next(), LogRow::Complete);
        ExpectStamps(seconds, 0.0, 0.0);
    }
}

TEST_F(LogReaderTest, ReadsAMissingTimeAsZero) {
    OpenGroups("'001", "'002", "none", "0,1.5,a,b,c,d\n");
    EXPECT_EQ(Next(), LogRow::Short);
    ExpectStamps(1.5, 0.0, 0.0);
}

TEST_F(LogReaderTest, StartsAgainWithTheStampsAtZero) {
    Open(kClassicHeader, kClassicRows);
    Records();
    ExpectStamps(3.5, 3.62, 0.0);
    m_reader.Close();
    ASSERT_TRUE(m_reader.Open(m_folder / "x.csv"));
    ExpectStamps(0.0, 0.0, 0.0);
    m_state.endOfLog = false;
    EXPECT_EQ(m_reader.ReadLogHeader(m_slots), 1);
    EXPECT_EQ(NextRecord(), kClassicRecords[0]);
}

TEST_F(LogReaderTest, LooksAtItsOwnHeaderNotAtTheSlots) {
    Open(kClassicHeader, kClassicRows);
    for (auto& slot : m_slots.slots) slot = FieldSlot{};  // a parsed record may leave them like this
    EXPECT_EQ(NextRecord(), kClassicRecords[0]);
}

TEST_F(LogReaderTest, KeepsWhatTheSlotsShow) {
    m_slots[3].value = 12.5;
    m_slots[3].lastGroup = 7;
    Open(kClassicHeader, kClassicRows);
    EXPECT_EQ(m_slots[3].value, 12.5);
    EXPECT_EQ(m_slots[3].lastGroup, 7);
}

TEST_F(LogReaderTest, SaysWhenTheFileCannotBeOpened) {
    EXPECT_FALSE(m_reader.Open(m_folder / "none.csv"));
    EXPECT_FALSE(m_reader.Open(m_folder.Path()));
    EXPECT_EQ(Next(), LogRow::Ended);
}

TEST_F(LogReaderTest, EndsWhenClosed) {
    Open(kClassicHeader, kClassicRows);
    m_reader.Close();
    EXPECT_EQ(Next(), LogRow::Ended);
    EXPECT_TRUE(m_state.endOfLog);
}

}  // namespace
}  // namespace plotvane
