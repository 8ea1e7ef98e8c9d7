#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "logs/LogReader.h"
#include "tests/unit/logs/LogReaderFixture.h"

// Damaged logs: cut, appended, broken, forged.
namespace plotvane {
namespace {

using test::Empty;
using test::kAdvancedHeader;
using test::kAdvancedRows;
using test::kClassicHeader;
using test::kClassicRecords;
using test::kClassicRows;
using test::kLongObdHeader;
using test::kObdHeader;
using test::kObdRows;

class LogDamageTest : public test::LogReaderFixture {
protected:
    // Whatever the bytes are, reading ends, and every record is bounded text.
    void ExpectBounded(std::string_view log) {
        m_state.endOfLog = false;
        Open(log);
        std::size_t rows = 0;
        for (LogRow row = LogRow::Complete; row == LogRow::Complete && !m_state.endOfLog; ++rows) {
            row = Next();
            ASSERT_LE(m_record.Text().size(), RecordBuffer::kMaxTextLength);
            ASSERT_LE(rows, log.size());
            for (const double stamp : m_reader.Stamps()) ASSERT_TRUE(std::isfinite(stamp));
        }
        EXPECT_TRUE(m_state.endOfLog);
        EXPECT_LE(m_reader.ModuleName().size(), 15u);
    }
};

TEST_F(LogDamageTest, ARowCutAtALineEndIsShort) {
    Open(kClassicHeader, "0,0.00,780,90.0,0.9,1.02,0.12,780,240.5\n1,0.50,1240,90.0\n");
    EXPECT_EQ(Next(), LogRow::Short);
    EXPECT_TRUE(m_state.endOfLog);
}

TEST_F(LogDamageTest, ARowWithoutItsLastValueIsShort) {
    const std::string cutByEndOfFile =
        "0,0,1,2,3,4,0,5,6,7,\xFF"
        "8,\n";
    for (const std::string& row :
         {std::string("0,0,1,2,3,4,0,5,6,7\n"), std::string("0,0,1,2,3,4,0\n"), std::string("0,0,1,2,3,4\n"),
          std::string("0,0,1\n"), std::string("0,0\n"), std::string("0,\n"),
          std::string("0,0,1,2,3,4,0,5,6,7"), std::string("0,0,1,2,3,4,0,5,6,7,"), cutByEndOfFile}) {
        Open(kClassicHeader, row);
        m_state.endOfLog = false;
        EXPECT_EQ(Next(), LogRow::Short) << row;
        EXPECT_TRUE(m_state.endOfLog) << row;
    }
}

TEST_F(LogDamageTest, AShortRowDoesNotTakeValuesFromTheNext) {
    Open(kClassicHeader, "0,0.00,780,90.0\n1,0.50,1240,90.0,4.2,0.98,0.62,1240,310.0,305.5,40.1,,,,,\n");
    EXPECT_EQ(Next(), LogRow::Short);
    EXPECT_EQ(m_record.Text(), "038-906-019-FT,G001,F0,780,/min,G001,F1,90.0," DEGREES_C "," + Empty(4));
    EXPECT_EQ(NextRecord(), kClassicRecords[1]);
}

TEST_F(LogDamageTest, ARowNeedsNoColumnsForARowOfTheChartWithoutGroup) {
    Open(kClassicHeader, "0,0.00,780,90.0,0.9,1.02,0.12,780,240.5,238.0,12.5\n");
    EXPECT_EQ(NextRecord(), kClassicRecords[0]);
    EXPECT_EQ(Next(), LogRow::Ended);
}

TEST_F(LogDamageTest, AShortAdvancedRowIsShort) {
    for (const auto* row : {"0,0.00,780,0.03,90.0,0.06,0,0.09,780\n", "0\n,", "0,\n", "0,1\n"}) {
        Open(kAdvancedHeader, row);
        EXPECT_EQ(Next(), LogRow::Short) << row;
    }
    Open(kAdvancedHeader, "0,0.00,780,0.03,90.0,0.06,0,0.09,780,0.12,240.5\n");
    EXPECT_EQ(Next(), LogRow::Complete);  // the rest has no group
}

TEST_F(LogDamageTest, AShortObdRowIsShort) {
    for (const auto* row : {"0,0.00,780,0.05,0\n", "0,0.00\n", "0,0.00,780,0.05,0,0.10"}) {
        Open(kObdHeader, row);
        EXPECT_EQ(Next(), LogRow::Short) << row;
    }
    Open(kObdHeader, "0,0.00,780,0.05,0,0.10,90");
    EXPECT_EQ(Next(), LogRow::Complete);
}

TEST_F(LogDamageTest, AShortTenChannelRowIsShort) {
    std::string log(test::kTenChannelLog);
    log.resize(log.find(",23,24,\n"));
    Open(log, "\n");
    EXPECT_EQ(Next(), LogRow::Short);
    log.resize(log.find(",10,0.3"));
    Open(log, "\n");
    EXPECT_EQ(Next(), LogRow::Short);
}

TEST_F(LogDamageTest, TheHeaderOfAnAppendedLogEndsTheReplay) {
    Open(kClassicHeader, std::string(kClassicRows) + std::string(kClassicHeader) + std::string(kClassicRows));
    EXPECT_EQ(Records().size(), 3u);
    EXPECT_EQ(m_last, LogRow::Short);
    EXPECT_TRUE(m_state.endOfLog);
}

TEST_F(LogDamageTest, AnEndOfFileByteEndsTheReplay) {
    for (std::size_t at = 0; at < kClassicRows.size(); ++at) {
        std::string rows(kClassicRows);
        rows[at] = '\xFF';
        m_state.endOfLog = false;
        Open(kClassicHeader, rows);
        const auto line = std::count(rows.begin(), rows.begin() + static_cast<std::ptrdiff_t>(at), '\n');
        const auto records = static_cast<std::ptrdiff_t>(Records().size());
        EXPECT_TRUE(m_state.endOfLog) << at;
        // The row with the byte is used if all values stand before it.
        EXPECT_TRUE(records == line || (records == line + 1 && m_last == LogRow::Complete)) << at;
    }
}

TEST_F(LogDamageTest, AnEndOfFileByteAfterTheLastValueLeavesTheRowWhole) {
    Open(kClassicHeader,
         "0,0.00,780,90.0,0.9,1.02,0.12,780,240.5,238.0,12.5\xFF"
         "3,,,,,\n1,0.5,1,2\n");
    EXPECT_EQ(NextRecord(), kClassicRecords[0]);
    EXPECT_TRUE(m_state.endOfLog);
}

TEST_F(LogDamageTest, ALogMayEndAnywhereInItsHeader) {
    for (const auto header :
         {kClassicHeader, kAdvancedHeader, kObdHeader, kLongObdHeader, test::kTenChannelLog})
        for (std::size_t length = 0; length <= header.size(); ++length) {
            ExpectBounded(header.substr(0, length));
            if (HasFatalFailure()) return;
        }
}

TEST_F(LogDamageTest, AnyByteMayBeAnother) {
    const std::string logs[] = {std::string(kClassicHeader) + std::string(kClassicRows),
                                std::string(kAdvancedHeader) + std::string(kAdvancedRows),
                                std::string(kObdHeader) + std::string(kObdRows),
                                std::string(kLongObdHeader) + std::string(kObdRows),
                                std::string(test::kTenChannelLog)};
    constexpr std::string_view kBytes = {"\0\n,0G'-(\x1A\xFF\xB0\r", 12};
    constexpr std::size_t kBytesAPlace = 2;  // two at every place; they repeat every six places
    for (const std::string& log : logs)
        for (std::size_t at = 0; at < log.size(); ++at)
            for (std::size_t turn = 0; turn < kBytesAPlace; ++turn) {
                std::string flipped = log;
                flipped[at] = kBytes[(at * kBytesAPlace + turn) % kBytes.size()];
                ExpectBounded(flipped);
                if (HasFatalFailure()) return;
            }
}

TEST_F(LogDamageTest, ValuesThatDoNotFitIntoTheRecordMakeTheRowShort) {
    const std::string longValue(120, '1');
    std::string row = "0,0";
    for (int value = 0; value < 4; ++value) row += "," + longValue;
    Open(kClassicHeader, row + ",0,1,2,3,4\n");
    EXPECT_EQ(Next(), LogRow::Short);
    EXPECT_TRUE(m_state.endOfLog);
    EXPECT_LE(m_record.Text().size(), 512u);
}

TEST_F(LogDamageTest, AnObdUnitOf256CharactersMayLeaveNoRoom) {
    const std::string unit(256, 'u');
    Open(FIRST_LINE "OBD\n- 012- 013- 000- 000\n(" + unit + "),(" + unit + ")\n", "0,0,1,0,2\n");
    EXPECT_EQ(Next(), LogRow::Short);
}

TEST_F(LogDamageTest, AnObdLogWithoutItsFourIdentifiersOrItsUnitsHasNoRows) {
    const std::string row = "0,0.00,780,0.05,0\n";
    std::string rows;
    for (int i = 0; i < 10'000; ++i) rows += row;
    for (const std::string_view head :
         {"", "mark,time\n", "- 012- 013- 005\n(a)(b)(c)\n", "- 012- 013- 005- 000\n(a)(b)\n",
          "- 012- 013- 005- 000 (a)(b)(c)\n", "- 012- 000- 000- 000\n(a\n", "- 012- 000- 000- 000\na)\n"}) {
        m_state.endOfLog = false;
        Open(FIRST_LINE "OBD\n" + std::string(head), rows);
        EXPECT_EQ(Next(), LogRow::Ended) << head;
        EXPECT_TRUE(m_state.endOfLog) << head;
    }
}

TEST_F(LogDamageTest, AVeryLongCellIsCut) {
    const std::string megabyte(1 << 20, '7');
    Open(kObdHeader, "0," + megabyte + "," + megabyte + ",0.05,0,0.10,90,,\n1,0.50,1240,0.55,12,0.60,90,,\n");
    EXPECT_EQ(NextRecord(), "OBD.LBL,G012,F0," + std::string(LogText::kMaxCellLength, '7') +
                                ",/min,G013,F0,0,km/h,G005,F0,90," DEGREES_C "," + Empty(9));
    EXPECT_EQ(NextRecord(), "OBD.LBL,G012,F0,1240,/min,G013,F0,12,km/h,G005,F0,90," DEGREES_C "," + Empty(9));
}

TEST_F(LogDamageTest, ANulIsAnOrdinaryByteOfNoNumber) {
    using namespace std::string_view_literals;
    Open(kObdHeader,
         "0,0.00,7\0"
         "80,0.05,0,0.10,90,,\n"sv);
    EXPECT_EQ(NextRecord(), "OBD.LBL,G012,F0,7?80,/min,G013,F0,0,km/h,G005,F0,90," DEGREES_C "," + Empty(9));
}

TEST_F(LogDamageTest, TheTenChannelGroupInAnotherRowDoesNoHarm) {
    ExpectBounded(FIRST_LINE
                  "ABC,\n\n,A,'000,,,,,,,,,,B,'000,,,,C,'000\n,,,,,,,,,,,,,,,,,,,,,\n,,,,,,,,,,,,,,,,,,,,,\n"
                  "m,t,,,,,,,,,,,t,,,,,t,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,\n"
                  "0,0,1,2,3,4,5,6,7,8,9,10,0,1,2,3,4,5,6,7,8,9,10,0,1,2,3,4,5,6,7,8,9,10\n");
}

TEST_F(LogDamageTest, ARowOfTheChartThatIsMissingFromTheHeaderIsEmpty) {
    Open(FIRST_LINE "ABC,\n\n,A,'001", "");
    EXPECT_EQ(m_slots[0].group, 1);
    EXPECT_EQ(m_slots[4].group, -1);
    EXPECT_EQ(Next(), LogRow::Ended);
}

TEST_F(LogDamageTest, AnEmptyFileHasNoRows) {
    Open("");
    EXPECT_EQ(m_reader.ModuleName(), "");
    EXPECT_EQ(Next(), LogRow::Ended);
    EXPECT_TRUE(m_state.endOfLog);
}

}  // namespace
}  // namespace plotvane
