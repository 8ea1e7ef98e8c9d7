#include "logs/LogHeader.h"

#include <gtest/gtest.h>

#include "tests/unit/logs/LogReaderFixture.h"

namespace plotvane {
namespace {

using test::kAdvancedHeader;
using test::kClassicHeader;
using test::kObdHeader;

class LogHeaderTest : public test::LogReaderFixture {
protected:
    void ExpectUnits(std::initializer_list<std::string_view> units) {
        std::vector<std::string_view> seen;
        for (const auto& slot : m_slots.slots) seen.emplace_back(slot.unit);
        EXPECT_EQ(seen, std::vector<std::string_view>(units));
    }

    // The module name for what stands at the start of the second line.
    std::string NameIn(std::string_view line) {
        Open(std::string(FIRST_LINE) + std::string(line) + "\n");
        return m_reader.ModuleName();
    }
};

TEST_F(LogHeaderTest, GivesTheSlotsOfAClassicLogTheGroupsOfTheirRows) {
    Open(kClassicHeader);
    EXPECT_EQ(m_reader.ModuleName(), "038 906 019 FT");
    ExpectSlot(0, 1, 0, "/min");
    ExpectSlot(1, 1, 1, DEGREES_C);
    ExpectSlot(2, 1, 2, "l/h");
    ExpectSlot(3, 1, 3, "");
    ExpectSlot(4, 3, 0, "/min");
    ExpectSlot(5, 3, 1, "mg/str");
    ExpectSlot(6, 3, 2, "mg/str");
    ExpectSlot(7, 3, 3, "%");
    for (int column = 0; column < 4; ++column) ExpectSlot(8 + column, -1, column, "");
    EXPECT_FALSE(m_state.obdFile);
}

TEST_F(LogHeaderTest, LeavesTheUnitsOfTheTenChannelRowEmpty) {
    Open(test::kTenChannelLog);
    for (int column = 0; column < 4; ++column) {
        ExpectSlot(column, 0, column, "");
        ExpectSlot(4 + column, 3, column, "b" + std::to_string(column));
        ExpectSlot(8 + column, 5, column, "c" + std::to_string(column));
    }
}

TEST_F(LogHeaderTest, ReadsAllThreeGroups) {
    Open(FIRST_LINE
         "ABC 123,\n\n"
         ",A,'255,,,,B,'010,,,,C,'999\n"
         ",,,,,,,,,,,,,,,\n,,,,,,,,,,,,,,,\n"
         "m,t,a0,a1,a2,a3,t,b0,b1,b2,b3,t,c0,c1,c2,c3\n");
    for (int column = 0; column < 4; ++column) {
        ExpectSlot(column, 255, column, "a" + std::to_string(column));
        ExpectSlot(4 + column, 10, column, "b" + std::to_string(column));
        ExpectSlot(8 + column, 999, column, "c" + std::to_string(column));
    }
}

TEST_F(LogHeaderTest, CountsCommasOnlyOnTheWayToTheUnits) {
    constexpr std::string_view kUnits = "m,t,a0,a1,a2,a3,t,b0,b1,b2,b3,t,c0,c1,c2,c3\n";
    const std::string start = FIRST_LINE "ABC,\n\n,A,'001,,,,B,'002,,,,C,'003";
    const std::string commas(30, ',');
    for (const std::string& between : {"\n" + commas + "\n", commas + "\n", commas,
                                       ",,,\n" + commas.substr(15) + "\n\n" + commas.substr(18) + "\n"}) {
        Open(start + between + std::string(kUnits));
        ExpectUnits({"a0", "a1", "a2", "a3", "b0", "b1", "b2", "b3", "c0", "c1", "c2", "c3"});
    }
}

TEST_F(LogHeaderTest, ReadsUnitsThatLieInSeveralLines) {
    const std::string start =
        FIRST_LINE "ABC,\n\n,A,'001,,,,B,'002,,,,C,'003\n" + std::string(30, ',') + "\n";
    for (const std::string_view units : {"m,t,a0,a1,a2,a3\nt,b0,b1,b2,b3\nt,c0,c1,c2,c3\n",
                                         "m,t,a0,a1\na2\na3,t,b0,b1,b2,b3,t,c0\nc1,c2,c3\n"}) {
        Open(start + std::string(units));
        ExpectUnits({"a0", "a1", "a2", "a3", "b0", "b1", "b2", "b3", "c0", "c1", "c2", "c3"});
    }
}

TEST_F(LogHeaderTest, DropsOneBlankBeforeAUnit) {
    Open(FIRST_LINE
         "ABC,\n\n,A,'001,,,,B,'002,,,,C,'003\n,,,,,,,,,,,,,,,\n,,,,,,,,,,,,,,,\n"
         "m,t, x,  y,z ,,t,,,,,t,,,,  end\n");
    ExpectUnits({"x", " y", "z ", "", "", "", "", "", "", "", "", " end"});
}

TEST_F(LogHeaderTest, TakesNoGroupFromACellWithoutThreeDigits) {
    for (const auto* cell : {"none", "'", "'x01", "'0x1", "'00x", "'00", "001", "\"001\""}) {
        Open(FIRST_LINE "ABC,\n\n,A," + std::string(cell) +
             ",,,,B,'002,,,,C,'003\n,,,,,,,,,,,,,,,\n,,,,,,,,,,,,,,,\n"
             "m,t,a0,a1,a2,a3,t,b0,b1,b2,b3,t,c0,c1,c2,c3\n");
        ExpectSlot(0, -1, 0, "a0");  // its units are read like any other
        ExpectSlot(4, 2, 0, "b0");
        ExpectSlot(8, 3, 0, "c0");
    }
}

TEST_F(LogHeaderTest, ReadsTheRowsAfterAnEmptyGroupCell) {
    Open(FIRST_LINE
         "ABC,\n\n,A,,,,,B,,,,,C,'003\n,,,,,,,,,,,,,,,\n,,,,,,,,,,,,,,,\n"
         "m,t,a0,a1,a2,a3,t,b0,b1,b2,b3,t,c0,c1,c2,c3\n");
    ExpectSlot(0, -1, 0, "a0");
    ExpectSlot(4, -1, 0, "b0");
    ExpectSlot(8, 3, 0, "c0");
}

TEST_F(LogHeaderTest, CutsTheModuleNameAtFifteenCharacters) {
    EXPECT_EQ(NameIn("038 906 019 ABC,"), "038 906 019 ABC");
    EXPECT_EQ(NameIn("038 906 019 ABCDE,"), "038 906 019 ABC");
    EXPECT_EQ(NameIn(std::string(1000000, 'x')), std::string(15, 'x'));
    EXPECT_EQ(NameIn("A"), "A");
    EXPECT_EQ(NameIn(","), "");
    EXPECT_EQ(NameIn(""), "");
}

TEST_F(LogHeaderTest, LandsOnTheFourthLineWhateverTheLengthOfTheName) {
    for (const auto* line : {"A", "A,", "A,x,y,z", "038 906 019 ABC", "038 906 019 ABC,",
                             "038 906 019 ABCDE,Engine", "038 906 019 ABCDE", "", ",", ",,,,,,"}) {
        Open(FIRST_LINE + std::string(line) +
             "\nthird,line\n,A,'007,,,,B,none,,,,C,none\n,,,,,,,,,,,,,,,\n,,,,,,,,,,,,,,,\n"
             "m,t,a0,a1,a2,a3,t,,,,,t,,,,\n");
        ExpectSlot(0, 7, 0, "a0");
    }
}

TEST_F(LogHeaderTest, GivesTheSlotsOfAnAdvancedLogGroupsAndFieldsOfTheirOwn) {
    Open(kAdvancedHeader);
    EXPECT_EQ(m_reader.ModuleName(), "038 906 019 FT");
    ExpectSlot(0, 1, 0, "/min");
    ExpectSlot(1, 1, 1, DEGREES_C);
    ExpectSlot(2, 1, 3, "km/h");
    ExpectSlot(3, 3, 0, "/min");
    ExpectSlot(4, 3, 2, "mg/str");
    for (int slot = 5; slot < kSlotCount; ++slot) ExpectSlot(slot, 0, 0, "");
    EXPECT_FALSE(m_state.obdFile);
}

TEST_F(LogHeaderTest, FindsTheMarkOfTheAdvancedFormAfterTheNameOnly) {
    const std::string rest(kAdvancedHeader.substr(kAdvancedHeader.find(",,G001")));
    const auto groupOfSlot0 = [&](std::string_view line) {
        Open(FIRST_LINE + std::string(line) + "\n" + rest);
        return m_slots[0].group;
    };
    EXPECT_EQ(groupOfSlot0("038 906 019 FT,ADVMB,"), 1);
    EXPECT_EQ(groupOfSlot0("038 906 019 FT,ADVMB"), 1);
    EXPECT_EQ(groupOfSlot0("038 906 019 ABC,ADVMB x"), 1);   // fifteen characters
    EXPECT_EQ(groupOfSlot0("038 906 019 ABCDE,ADVMBs"), 1);  // more than fifteen
    EXPECT_EQ(groupOfSlot0("A,xADVMB"), 1);
    EXPECT_EQ(groupOfSlot0("A,xyADVMB"), -1);  // only six letters are looked at
    EXPECT_EQ(groupOfSlot0("A, ADVMB"), -1);   // a blank ends them
    EXPECT_EQ(groupOfSlot0("A,advmb"), -1);
    EXPECT_EQ(groupOfSlot0("ADVMB,x"), -1);
}

TEST_F(LogHeaderTest, StopsAtAnAdvancedCellThatDoesNotMatch) {
    for (const auto* cell :
         {"X001,F0,", "G01,F0,", "Gabc,F0,", "G001F0,", "G001,0,", "G001,Fx,", "G001,F12,", ",", ""}) {
        Open(FIRST_LINE "ABC,ADVMB\n,,G001,F2," + std::string(cell) + "\n\n\n\nm,t,u0,t,u1\n");
        ExpectSlot(0, 1, 2, "");
        for (int slot = 1; slot < kSlotCount; ++slot) ExpectSlot(slot, -1, 0, "");
    }
}

TEST_F(LogHeaderTest, StaysInTheLineOfTheUnitsOfAnAdvancedLog) {
    const auto cut = kAdvancedHeader.find(",time, km/h");
    Open(std::string(kAdvancedHeader.substr(0, cut)) + "\n", test::kAdvancedRows);
    ExpectSlot(1, 1, 1, DEGREES_C);
    ExpectSlot(2, 1, 3, "");
    EXPECT_EQ(NextRecord(), "038-906-019-FT,G001,F0,780,/min,G001,F1,90.0," DEGREES_C
                            ",G001,F3,0,,G003,F0,780,,G003,F2,240.5,," +
                                test::Empty(7));
}

TEST_F(LogHeaderTest, ReadsAnAdvancedLogWithoutCommaAfterTheLastUnit) {
    std::string header(kAdvancedHeader);
    header.replace(header.size() - 3, 2, ",l/h");  // the twelfth unit, ended by the line end
    Open(header, test::kAdvancedRows);
    ExpectSlot(11, 0, 0, "l/h");
    EXPECT_EQ(Records().size(), 3u);
}

TEST_F(LogHeaderTest, MarksAnObdLogAndReadsItsUnits) {
    Open(kObdHeader);
    EXPECT_EQ(m_reader.ModuleName(), "OBD");
    EXPECT_TRUE(m_state.obdFile);
    ExpectSlot(0, 0, 0, "/min");  // groups 0 and 1 until the first row
    ExpectSlot(1, -1, 0, "km/h");
    ExpectSlot(2, -1, 0, DEGREES_C);
    ExpectSlot(3, -1, 0, "");
    ExpectSlot(4, 1, 0, "");
}

TEST_F(LogHeaderTest, KnowsAnObdLogByItsModuleName) {
    for (const auto* line : {"OBD", "OBD-II,x", "xOBDx,", "EOBD data"})
        EXPECT_EQ(NameIn(line), "OBD") << line;
    for (const auto* line : {"obd", "O BD", "x,OBD", "0123456789abcOBD"})
        EXPECT_NE(NameIn(line), "OBD") << line;
    EXPECT_EQ(NameIn("0123456789abOBD"), "OBD");
}

TEST_F(LogHeaderTest, CutsAnObdUnitAt256Characters) {
    Open(FIRST_LINE "OBD\n- 012- 013- 000- 000\n(" + std::string(300, 'u') + "),(km/h)\n");
    EXPECT_EQ(m_slots[0].unit, std::string(256, 'u'));
    EXPECT_EQ(m_slots[1].unit, "km/h");
}

TEST_F(LogHeaderTest, FindsTheUnitsOfAnObdLogInWhateverLines) {
    for (const std::string_view head :
         {"- 012- 013- 005- 017\n(a)(b)(c)(d)\n", "\n\n- 012\n- 013\n\n- 005\n- 017\n(a)\n(b)\n\n(c)\n(d)\n",
          "names\nPID- 012,PID- 013\nPID- 005,PID- 017\nnames\n,A (a),B (b)\n,C (c),D (d)\n",
          "-\n012-\n013-,005- 017 (not yet)\n\n)(a)((b)(c))(d)\n"}) {
        Open(FIRST_LINE "OBD\n" + std::string(head), "0,0.00,1,0.05,2,0.10,3,0.15,4\n");
        const std::string second = head.starts_with("-\n") ? "(b" : "b";  // a unit may hold a "("
        EXPECT_EQ(NextRecord(),
                  "OBD.LBL,G012,F0,1,a,G013,F0,2," + second + ",G005,F0,3,c,G017,F0,4,d," + test::Empty(8));
    }
}

TEST_F(LogHeaderTest, AnObdUnitThatGoesOverALineEndHasABlankThere) {
    Open(FIRST_LINE "OBD\n- 012- 013- 000- 000\n(mg/\nstr)(\r\n\n)\n", "0,0,1,0,2,,,,\n");
    EXPECT_EQ(m_slots[0].unit, "mg/ str");
    EXPECT_EQ(m_slots[1].unit, "  ");
    EXPECT_EQ(NextRecord(), "OBD.LBL,G012,F0,1,mg/ str,G013,F0,2,  ," + test::Empty(10));
}

TEST_F(LogHeaderTest, TheUnitsOfAnObdLogAreNotInTheLineOfTheLastIdentifier) {
    Open(FIRST_LINE "OBD\n- 012- 000- 000- 000 (/min)\n", "(km/h)\n0,0.00,50,,,,,,\n");
    EXPECT_EQ(m_slots[0].unit, "km/h");
}

TEST_F(LogHeaderTest, ANumberOfAnObdLogEndsWithItsLine) {
    Open(FIRST_LINE "OBD\n- 5\n- 13\n- 017- 4\n(a)(b)(c)(d)\n", "0,0,1,0,2,0,3,0,4\n");
    EXPECT_EQ(NextRecord(), "OBD.LBL,G005,F0,1,a,G013,F0,2,b,G017,F0,3,c,G004,F0,4,d," + test::Empty(8));
}

TEST_F(LogHeaderTest, DescribesTheNewLogOnly) {
    Open(kAdvancedHeader);
    Open(kObdHeader);
    ExpectSlot(5, -1, 0, "");
    ExpectSlot(3, -1, 0, "");
}

}  // namespace
}  // namespace plotvane
