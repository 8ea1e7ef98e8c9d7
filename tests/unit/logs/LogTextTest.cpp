#include "logs/LogText.h"

#include <gtest/gtest.h>

#include "tests/support/TempFolder.h"

namespace plotvane {
namespace {

class LogTextTest : public testing::Test {
protected:
    void Open(std::string_view bytes) {
        m_text.Close();
        test::WriteBytes(m_folder / "x.csv", bytes);
        ASSERT_TRUE(m_text.Open(m_folder / "x.csv"));
    }
    void ExpectCell(std::string_view cell, LogText::CellEnd end) {
        EXPECT_EQ(m_text.ReadCell(), end) << cell;
        EXPECT_EQ(m_text.Cell(), cell);
    }

    test::TempFolder m_folder;
    LogText m_text;
};

using enum LogText::CellEnd;

TEST_F(LogTextTest, CannotOpenWhatIsNotThere) {
    EXPECT_FALSE(m_text.Open(m_folder / "missing.csv"));
}

TEST_F(LogTextTest, ReadsCellsUpToTheCommaAndStopsBeforeTheLineEnd) {
    Open("a,,b\r\nc");
    ExpectCell("a", Comma);
    ExpectCell("", Comma);
    ExpectCell("b", LineEnd);
    ExpectCell("", LineEnd);
    EXPECT_TRUE(m_text.SkipLines(1));
    ExpectCell("c", File);
    ExpectCell("", File);
}

TEST_F(LogTextTest, KeepsTheFirst256CharactersOfACell) {
    Open(std::string(256, 'x') + "yz,next");
    ExpectCell(std::string(256, 'x'), Comma);
    ExpectCell("next", File);
}

TEST_F(LogTextTest, ANulIsAQuestionMark) {
    Open(std::string_view("7\0008,", 4));
    ExpectCell("7?8", Comma);
}

TEST_F(LogTextTest, ReadsUpToADelimiterOverLineEndsWhichAreBlanks) {
    Open("one\ntwo)three");
    EXPECT_EQ(m_text.ReadUpTo(')'), "one two");
    EXPECT_EQ(m_text.ReadUpTo(')'), "three");
}

TEST_F(LogTextTest, SkipsPastSoManyCharactersOfAKindWhereverTheyStand) {
    Open("a,b\n,c,d");
    EXPECT_TRUE(m_text.SkipPast(',', 2));
    ExpectCell("c", Comma);
    EXPECT_FALSE(m_text.SkipPast(',', 1));
    Open("a,b");
    EXPECT_TRUE(m_text.SkipPast(',', 0));
    ExpectCell("a", Comma);
    EXPECT_FALSE(m_text.SkipPast(',', 1));
}

TEST_F(LogTextTest, SkipsWithinTheLineOnly) {
    Open("a-b\nc-d");
    EXPECT_TRUE(m_text.SkipPastInLine('-'));
    EXPECT_FALSE(m_text.SkipPastInLine('-'));
    ExpectCell("", LineEnd);
    EXPECT_TRUE(m_text.SkipLines(1));
    ExpectCell("c-d", File);
}

TEST_F(LogTextTest, TakesACharacterOnlyIfItIsTheOne) {
    Open("'0");
    EXPECT_FALSE(m_text.Take('0'));
    EXPECT_TRUE(m_text.Take('\''));
    EXPECT_TRUE(m_text.Take('0'));
    EXPECT_FALSE(m_text.Take('0'));
}

TEST_F(LogTextTest, TakesLettersAndDigits) {
    Open("A1 b");
    EXPECT_EQ(m_text.TakeLetterOrDigit(), 'A');
    EXPECT_EQ(m_text.TakeLetterOrDigit(), '1');
    EXPECT_EQ(m_text.TakeLetterOrDigit(), std::nullopt);
    m_text.SkipCharacter();
    EXPECT_EQ(m_text.TakeLetterOrDigit(), 'b');
    EXPECT_EQ(m_text.TakeLetterOrDigit(), std::nullopt);
}

TEST_F(LogTextTest, ANumberHasAllItsDigits) {
    Open("0123x01");
    EXPECT_TRUE(m_text.AtDigit());
    EXPECT_EQ(m_text.TakeDigits(3), 12);
    EXPECT_EQ(m_text.TakeDigits(2), std::nullopt);  // and the "3" is gone
    EXPECT_FALSE(m_text.AtDigit());
    EXPECT_TRUE(m_text.Take('x'));
    EXPECT_EQ(m_text.TakeDigits(3), std::nullopt);
}

TEST_F(LogTextTest, TakesSoManyCharactersOfTheLine) {
    Open("abcd,\nx");
    EXPECT_EQ(m_text.TakeCharacters(3), "abc");
    EXPECT_EQ(m_text.TakeCharacters(9), "d,");
    EXPECT_EQ(m_text.TakeCharacters(9), "");
}

}  // namespace
}  // namespace plotvane
