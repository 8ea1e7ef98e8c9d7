#include "scaling/DefaultRowBrowser.h"

#include <gtest/gtest.h>

#include "tests/support/TempFolder.h"

namespace plotvane {
namespace {

using NewRow = DefaultRowBrowser::NewRow;

class DefaultRowBrowserTest : public testing::Test {
protected:
    void Load(std::string_view bytes) {
        test::WriteBytes(File(), bytes);
        m_browser.Load();
    }
    std::filesystem::path File() const { return m_folder / "Defaults.cfg"; }
    std::string Saved() const {
        EXPECT_EQ(m_table.SaveDefaultScaling(), 0);
        return test::BytesOf(File());
    }
    void ExpectRow(std::string_view unit, int min, int max) const {
        EXPECT_EQ(m_browser.Row().unit, unit);
        EXPECT_EQ(m_browser.Row().min, min);
        EXPECT_EQ(m_browser.Row().max, max);
    }
    std::string Position() const { return m_browser.Position("Field#"); }

    test::TempFolder m_folder;
    DefaultScaling m_table{m_folder.Path()};
    DefaultRowBrowser m_browser{m_table};
};

TEST_F(DefaultRowBrowserTest, ShowsTheFirstRowOfThoseInTheFile) {
    Load("V,0,20,\nms,1,30,\n");
    ExpectRow("V", 0, 20);
    EXPECT_EQ(Position(), "Field#: 1/2");
}

TEST_F(DefaultRowBrowserTest, ShowsTheBuiltInTableWhenThereIsNoFile) {
    m_browser.Load();
    ExpectRow("/min", 0, 6000);
    EXPECT_EQ(Position(), "Field#: 1/10");
}

TEST_F(DefaultRowBrowserTest, StepsToTheEndsAndStaysThere) {
    Load("V,0,20,\nms,1,30,\n");
    m_browser.GoToPrevious();
    EXPECT_EQ(Position(), "Field#: 1/2");
    m_browser.GoToNext();
    ExpectRow("ms", 1, 30);
    EXPECT_EQ(Position(), "Field#: 2/2");
    m_browser.GoToNext();
    EXPECT_EQ(Position(), "Field#: 2/2");
    m_browser.GoToPrevious();
    ExpectRow("V", 0, 20);
}

TEST_F(DefaultRowBrowserTest, ComesBackToTheFirstRowWhenTheTableIsLoadedAgain) {
    Load("V,0,20,\nms,1,30,\n");
    m_browser.GoToNext();
    Load("V,0,20,\n");
    ExpectRow("V", 0, 20);
    EXPECT_EQ(Position(), "Field#: 1/1");
}

TEST_F(DefaultRowBrowserTest, AnEmptyTableHasNoRowToShowOrEdit) {
    Load("");
    EXPECT_FALSE(m_browser.HasRow());
    ExpectRow("", 0, 0);
    EXPECT_EQ(Position(), "Field#: 1/0");
    m_browser.GoToNext();
    m_browser.GoToPrevious();
    m_browser.EnterUnit("V");
    m_browser.EnterMin("1");
    m_browser.EnterMax("2");
    ExpectRow("", 0, 0);
    EXPECT_EQ(Saved(), "");
}

TEST_F(DefaultRowBrowserTest, TheFirstRowOfAnEmptyTableIsAppendedWithoutALook) {
    Load("");
    EXPECT_EQ(m_browser.AppendRow(), NewRow::Added);
    ExpectRow("", 0, 0);
    EXPECT_EQ(Position(), "Field#: 1/1");
}

TEST_F(DefaultRowBrowserTest, ANewRowIsEmptyAndShown) {
    Load("V,0,20,\nms,1,30,\n");
    EXPECT_EQ(m_browser.AppendRow(), NewRow::Added);
    ExpectRow("", 0, 0);
    EXPECT_EQ(Position(), "Field#: 3/3");
    EXPECT_EQ(Saved(), "V,0,20,\r\nms,1,30,\r\n,0,0,\r\n");
}

TEST_F(DefaultRowBrowserTest, TheLastRowNeedsAUnitAndAMaximumFirst) {
    for (const char* last : {",0,30,\n", "ms,-5,0,\n", ",0,0,\n", ",7,0,\n"}) {
        Load(std::string("V,0,20,\n") + last);
        EXPECT_EQ(m_browser.AppendRow(), NewRow::LastIncomplete) << last;
        EXPECT_EQ(Position(), "Field#: 2/2") << last;
    }
}

TEST_F(DefaultRowBrowserTest, AnOnlyRowMustBeCompleteToo) {
    Load("");
    EXPECT_EQ(m_browser.AppendRow(), NewRow::Added);
    EXPECT_EQ(m_browser.AppendRow(), NewRow::LastIncomplete);
    m_browser.EnterUnit("V");
    m_browser.EnterMax("20");
    EXPECT_EQ(m_browser.AppendRow(), NewRow::Added);
    EXPECT_EQ(Position(), "Field#: 2/2");
}

TEST_F(DefaultRowBrowserTest, TheLastRowNeedsAMaximumAboveItsMinimum) {
    for (const char* last : {"ms,30,30,\n", "ms,31,30,\n", "ms,-5,-6,\n"}) {
        Load(std::string("V,0,20,\n") + last);
        EXPECT_EQ(m_browser.AppendRow(), NewRow::LastUpsideDown) << last;
        EXPECT_EQ(Position(), "Field#: 2/2") << last;
    }
}

TEST_F(DefaultRowBrowserTest, OtherRowsNeedNotBeComplete) {
    Load(",0,0,\nms,-6,-5,\n");
    EXPECT_EQ(m_browser.AppendRow(), NewRow::Added);
}

TEST_F(DefaultRowBrowserTest, AFullTableStaysAsItIs) {
    std::string file;
    for (int row = 0; row < 255; ++row) file += "V,0,20,\n";
    Load(file);
    EXPECT_EQ(m_browser.AppendRow(), NewRow::Added);  // the 256th
    m_browser.EnterUnit("ms");
    m_browser.EnterMax("9");
    m_browser.GoToPrevious();
    EXPECT_EQ(m_browser.AppendRow(), NewRow::Full);
    EXPECT_EQ(Position(), "Field#: 255/256");
}

TEST_F(DefaultRowBrowserTest, EditsGoStraightIntoTheRowThatIsShown) {
    Load("V,0,20,\nms,1,30,\n");
    m_browser.GoToNext();
    m_browser.EnterUnit("\xB0\x43");
    m_browser.EnterMin("-40");
    m_browser.EnterMax(" 150 degrees");
    ExpectRow("\xB0\x43", -40, 150);
    EXPECT_EQ(Saved(), "V,0,20,\r\n\xB0\x43,-40,150,\r\n");
}

TEST_F(DefaultRowBrowserTest, TextsWithoutANumberAreZeroAndTooLargeOnesTheLargest) {
    Load("V,1,20,\n");
    m_browser.EnterMin("low");
    m_browser.EnterMax("99999999999");
    ExpectRow("V", 0, 2147483647);
    m_browser.EnterMin("-99999999999");
    m_browser.EnterMax("");
    ExpectRow("V", -2147483647 - 1, 0);
}

TEST_F(DefaultRowBrowserTest, AUnitLosesWhatWouldBreakTheFile) {
    Load("V,0,20,\nms,1,30,\n");
    m_browser.EnterUnit("k,m\r\n/\th\x1A\xFF");
    ExpectRow("km/h", 0, 20);
    m_browser.EnterUnit(std::string(50, 'x'));
    ExpectRow(std::string(39, 'x'), 0, 20);
}

TEST_F(DefaultRowBrowserTest, WhatTheFilesReaderTakesForItsEndIsNotTaken) {
    Load("V,0,20,\nms,1,30,\n");
    EXPECT_FALSE(m_browser.EnterUnit("EOF"));
    EXPECT_FALSE(m_browser.EnterUnit("E,OF\n"));
    EXPECT_FALSE(m_browser.EnterMax("-99999"));
    ExpectRow("V", 0, 20);
    m_browser.EnterMin("-99999");  // does not end it
    EXPECT_TRUE(m_browser.EnterUnit("eof"));
    EXPECT_EQ(Saved(), "eof,-99999,20,\r\nms,1,30,\r\n");
    m_browser.Load();
    EXPECT_EQ(Position(), "Field#: 1/2");
}

}  // namespace
}  // namespace plotvane
