#include "scaling/DefaultScaling.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/TempFolder.h"

namespace plotvane {
namespace {

constexpr std::string_view kBuiltInFile =
    "/min,0,6000,\r\n"
    "V,0,20,\r\n"
    "\xB0\x43,-10,120,\r\n"
    "mg/str,0,1500,\r\n"
    "%,-50,150,\r\n"
    "km/h,0,250,\r\n"
    "mbar,900,2500,\r\n"
    "Nm,0,400,\r\n"
    "\xB0,-50,50,\r\n"
    "ms,0,30,\r\n";

std::string WithPreferencesUnit(std::string text) {
    return text.replace(text.find("mg/str"), 6, "mg/R");
}

class DefaultScalingTest : public testing::Test {
protected:
    void SetUp() override { std::filesystem::create_directory(m_scaling); }
    std::filesystem::path File() const { return m_scaling / "Defaults.cfg"; }
    void Store(std::string_view bytes) { test::WriteBytes(File(), bytes); }

    // The file as a save of the table leaves it.
    std::string Saved() {
        EXPECT_EQ(m_table.SaveDefaultScaling(), 0);
        return test::BytesOf(File());
    }
    void ExpectRow(int row, std::string_view unit, int min, int max) {
        EXPECT_EQ(m_table.Row(row).unit, unit) << row;
        EXPECT_EQ(m_table.Row(row).min, min) << row;
        EXPECT_EQ(m_table.Row(row).max, max) << row;
    }

    test::TempFolder m_folder;
    std::filesystem::path m_scaling = m_folder / "Scaling";
    DefaultScaling m_table{m_scaling};
};

TEST_F(DefaultScalingTest, PlottingWritesTheBuiltInTableWhenThereIsNoFile) {
    m_table.LoadForPlotting();
    EXPECT_EQ(m_table.LastIndex(), 9);
    EXPECT_EQ(test::BytesOf(File()), kBuiltInFile);
    ExpectRow(0, "/min", 0, 6000);
    ExpectRow(3, "mg/str", 0, 1500);
    ExpectRow(8, "\xB0", -50, 50);
    ExpectRow(9, "ms", 0, 30);
}

TEST_F(DefaultScalingTest, PreferencesWriteTheBuiltInTableWithTheirOwnUnitInRow3) {
    m_table.LoadDefaultScaling();
    EXPECT_EQ(m_table.LastIndex(), 9);
    ExpectRow(3, "mg/R", 0, 1500);
    EXPECT_EQ(test::BytesOf(File()), WithPreferencesUnit(std::string(kBuiltInFile)));
}

TEST_F(DefaultScalingTest, BothLoadersCreateTheScalingFolder) {
    for (const auto load : {&DefaultScaling::LoadForPlotting, &DefaultScaling::LoadDefaultScaling}) {
        std::filesystem::remove_all(m_scaling);
        (m_table.*load)();
        EXPECT_TRUE(std::filesystem::exists(File()));
    }
}

TEST_F(DefaultScalingTest, TheFolderMayHaveANameThatIsNotLatin) {
    const std::filesystem::path folder = m_folder.Path() / u"\u0413\u0430\u0440\u0430\u0436" / "Scaling";
    DefaultScaling table(folder);
    table.LoadForPlotting();
    EXPECT_EQ(test::BytesOf(folder / "Defaults.cfg"), kBuiltInFile);
}

TEST_F(DefaultScalingTest, TheBuiltInTableStandsWhenItCannotBeWritten) {
    std::filesystem::create_directory(File());
    m_table.LoadForPlotting();
    EXPECT_EQ(m_table.LastIndex(), 9);
    ExpectRow(5, "km/h", 0, 250);
    EXPECT_EQ(m_table.SaveDefaultScaling(), -1);
}

// A folder in the file's place stands for a file that cannot be read yet.
TEST_F(DefaultScalingTest, TheBuiltInTableInPlaceOfAnUnreadFileIsNotSaved) {
    for (const auto load : {&DefaultScaling::LoadForPlotting, &DefaultScaling::LoadDefaultScaling}) {
        std::filesystem::create_directory(File());
        (m_table.*load)();
        std::filesystem::remove(File());
        Store("A,1,2,\r\n");
        m_table.SetUnit(0, "/min");  // as it was
        m_table.SetMin(0, 0);
        m_table.SetMax(0, 6000);
        EXPECT_EQ(m_table.SaveDefaultScaling(), -1);
        EXPECT_EQ(test::BytesOf(File()), "A,1,2,\r\n");
        std::filesystem::remove(File());
    }
}

TEST_F(DefaultScalingTest, TheBuiltInTableInPlaceOfAnUnreadFileIsSavedOnceItIsChanged) {
    const auto edits = {+[](DefaultScaling& table) { table.SetUnit(0, "rpm"); },
                        +[](DefaultScaling& table) { table.SetMin(0, 1); },
                        +[](DefaultScaling& table) { table.SetMax(0, 7000); },
                        +[](DefaultScaling& table) { EXPECT_TRUE(table.AppendRow()); }};
    for (const auto edit : edits) {
        std::filesystem::create_directory(File());
        m_table.LoadDefaultScaling();
        std::filesystem::remove(File());
        edit(m_table);
        EXPECT_EQ(m_table.SaveDefaultScaling(), 0);
        std::filesystem::remove(File());
    }
}

TEST_F(DefaultScalingTest, ATableThatIsReadAfterAllIsSaved) {
    std::filesystem::create_directory(File());
    m_table.LoadDefaultScaling();
    std::filesystem::remove(File());
    Store("A,1,2,\r\n");
    m_table.LoadDefaultScaling();
    EXPECT_EQ(Saved(), "A,1,2,\r\n");
}

TEST_F(DefaultScalingTest, SavingFailsWithoutTheFolder) {
    m_table.LoadForPlotting();
    std::filesystem::remove_all(m_scaling);
    EXPECT_EQ(m_table.SaveDefaultScaling(), -1);
}

TEST_F(DefaultScalingTest, SavingFailsOnAProtectedFileAndKeepsIt) {
    Store("A,1,2,\r\n");
    m_table.LoadDefaultScaling();
    m_table.SetMax(0, 3);
    std::filesystem::permissions(File(), std::filesystem::perms::owner_read);
    EXPECT_EQ(m_table.SaveDefaultScaling(), -1);
    EXPECT_EQ(test::BytesOf(File()), "A,1,2,\r\n");
    std::filesystem::permissions(File(), std::filesystem::perms::owner_all);
}

TEST_F(DefaultScalingTest, TheBuiltInTableNeverMatchesItsLastRow) {
    m_table.LoadForPlotting();
    ASSERT_TRUE(m_table.FindByUnit("km/h"));
    EXPECT_EQ(m_table.FindByUnit("km/h")->max, 250);
    EXPECT_TRUE(m_table.FindByUnit("\xB0"));
    EXPECT_FALSE(m_table.FindByUnit("ms"));
}

TEST_F(DefaultScalingTest, PlottingCountsTheRowAfterTheLastRecord) {
    Store(kBuiltInFile);
    m_table.LoadForPlotting();
    EXPECT_EQ(m_table.LastIndex(), 10);
    EXPECT_EQ(m_table.Row(10).unit, "EOF");
    EXPECT_TRUE(m_table.FindByUnit("ms"));
    EXPECT_FALSE(m_table.FindByUnit("EOF"));
}

TEST_F(DefaultScalingTest, ASaveAfterPlottingEndsWithAnEofRecordThatReadsAsTheEnd) {
    Store(kBuiltInFile);
    m_table.LoadForPlotting();
    const std::string saved = Saved();
    EXPECT_EQ(saved, std::string(kBuiltInFile) + "EOF,0,0,\r\n");
    m_table.LoadForPlotting();
    EXPECT_EQ(m_table.LastIndex(), 10);
    EXPECT_EQ(Saved(), saved);
    m_table.LoadDefaultScaling();
    EXPECT_EQ(m_table.LastIndex(), 9);
    EXPECT_EQ(Saved(), kBuiltInFile);
}

TEST_F(DefaultScalingTest, TheEofRecordCarriesTheOldNumbersOfItsRow) {
    Store("A,1,2,\nB,3,4,\n");
    m_table.LoadDefaultScaling();
    Store("A,1,2,\n");
    m_table.LoadForPlotting();
    EXPECT_EQ(Saved(), "A,1,2,\r\nEOF,3,4,\r\n");
}

TEST_F(DefaultScalingTest, PreferencesCountTheRecordsAndNeverMatchTheLastOne) {
    Store(kBuiltInFile);
    m_table.LoadDefaultScaling();
    EXPECT_EQ(m_table.LastIndex(), 9);
    EXPECT_TRUE(m_table.FindByUnit("\xB0"));
    EXPECT_FALSE(m_table.FindByUnit("ms"));
    m_table.LoadForPlotting();
    EXPECT_TRUE(m_table.FindByUnit("ms"));
}

TEST_F(DefaultScalingTest, AnEmptyFileIsOneEofRowForPlotting) {
    Store("");
    m_table.LoadForPlotting();
    EXPECT_EQ(m_table.LastIndex(), 0);
    EXPECT_EQ(m_table.Row(0).unit, "EOF");
    EXPECT_FALSE(m_table.FindByUnit("EOF"));
    EXPECT_EQ(Saved(), "EOF,0,0,\r\n");
}

TEST_F(DefaultScalingTest, AnEmptyFileIsNoRowForPreferences) {
    Store("");
    m_table.LoadDefaultScaling();
    EXPECT_EQ(m_table.LastIndex(), -1);
    EXPECT_EQ(Saved(), "");
}

TEST_F(DefaultScalingTest, ARecordCutShortAfterItsMinimumKeepsItsOldMaximum) {
    Store("V,0,20,\nX,5,70,\n");
    m_table.LoadForPlotting();
    Store("V,0,20,\nA,1,\n");
    m_table.LoadForPlotting();
    EXPECT_EQ(m_table.LastIndex(), 1);
    ExpectRow(1, "A", 1, 70);
    EXPECT_TRUE(m_table.FindByUnit("V"));
    EXPECT_FALSE(m_table.FindByUnit("A"));
    EXPECT_EQ(Saved(), "V,0,20,\r\nA,1,70,\r\n");
}

TEST_F(DefaultScalingTest, PreferencesDropARecordCutShort) {
    Store("V,0,20,\nA,1,");
    m_table.LoadDefaultScaling();
    EXPECT_EQ(m_table.LastIndex(), 0);
    EXPECT_FALSE(m_table.FindByUnit("V"));
    EXPECT_EQ(Saved(), "V,0,20,\r\n");
}

TEST_F(DefaultScalingTest, ARecordCutShortAfterItsUnitKeepsItsOldNumbers) {
    Store("V,0,20,\nX,5,70,\n");
    m_table.LoadForPlotting();
    Store("V,0,20,\nA,");
    m_table.LoadForPlotting();
    ExpectRow(1, "A", 5, 70);
}

TEST_F(DefaultScalingTest, ReadingEndsAtARecordNamedEof) {
    Store("V,0,20,\nEOF,1,2,\nA,3,4,\n");
    m_table.LoadDefaultScaling();
    EXPECT_EQ(m_table.LastIndex(), 0);
    m_table.LoadForPlotting();
    EXPECT_EQ(m_table.LastIndex(), 1);
    EXPECT_FALSE(m_table.FindByUnit("A"));
}

TEST_F(DefaultScalingTest, ARecordSplitAcrossLinesStillReads) {
    Store("k\nm/h\n,\n 0,\n\n250\n,V,1,2,");
    m_table.LoadDefaultScaling();
    EXPECT_EQ(m_table.LastIndex(), 1);
    ExpectRow(0, "km/h", 0, 250);
    ExpectRow(1, "V", 1, 2);
}

TEST_F(DefaultScalingTest, MalformedNumbersReadAsZeroAndLargeOnesSaturate) {
    Store("a,x,12y,\nb,-99999999999,99999999999,\n");
    m_table.LoadDefaultScaling();
    ExpectRow(0, "a", 0, 12);
    ExpectRow(1, "b", -2147483647 - 1, 2147483647);
    EXPECT_EQ(Saved(), "a,0,12,\r\nb,-2147483648,2147483647,\r\n");
}

TEST_F(DefaultScalingTest, TheLookupComparesTheWholeUnitAndItsLetterCase) {
    Store("km/h,0,250,\nkm/h,1,2,\n,0,7,\nlast,0,1,\n");
    m_table.LoadForPlotting();
    ASSERT_TRUE(m_table.FindByUnit("km/h"));
    EXPECT_EQ(m_table.FindByUnit("km/h")->max, 250);
    for (const std::string_view unit : {"KM/H", "km", "km/h ", " km/h", "Km/h"}) {
        EXPECT_FALSE(m_table.FindByUnit(unit)) << unit;
    }
}

TEST_F(DefaultScalingTest, AUnitOf100CharactersMatchesNothing) {
    const std::string unit(100, 'u');
    Store(unit + ",0,250,\nV,0,1,\n");
    m_table.LoadForPlotting();
    EXPECT_EQ(m_table.Row(0).unit, unit.substr(0, 39));
    EXPECT_FALSE(m_table.FindByUnit(unit));
}

std::string Records(int count) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        text.append("u")
            .append(std::to_string(i))
            .append(",0,")
            .append(std::to_string(i + 1))
            .append(",\r\n");
    }
    return text;
}

TEST_F(DefaultScalingTest, Holds255RecordsAndTheEndOfTheFile) {
    Store(Records(255));
    m_table.LoadForPlotting();
    EXPECT_EQ(m_table.LastIndex(), 255);
    EXPECT_EQ(m_table.Row(255).unit, "EOF");
    EXPECT_TRUE(m_table.FindByUnit("u254"));
    EXPECT_EQ(Saved(), Records(255) + "EOF,0,0,\r\n");
}

TEST_F(DefaultScalingTest, StopsAtItsLastRow) {
    Store(Records(1000));
    m_table.LoadForPlotting();
    EXPECT_EQ(m_table.LastIndex(), 255);
    EXPECT_TRUE(m_table.FindByUnit("u254"));
    m_table.LoadDefaultScaling();
    EXPECT_EQ(m_table.LastIndex(), 255);
    EXPECT_EQ(Saved(), Records(256));
}

TEST_F(DefaultScalingTest, RowsCanBeOverwrittenByIndex) {
    Store(kBuiltInFile);
    m_table.LoadDefaultScaling();
    m_table.SetUnit(9, "bar");
    m_table.SetMin(9, -1);
    m_table.SetMax(9, 3);
    const std::string saved = Saved();
    EXPECT_TRUE(saved.ends_with("\xB0,-50,50,\r\nbar,-1,3,\r\n")) << saved;
}

TEST_F(DefaultScalingTest, RowsOutsideTheTableAreEmptyAndStayUntouched) {
    for (const int row : {-1, 256, 2147483647, -2147483647 - 1}) {
        m_table.SetUnit(row, "x");
        m_table.SetMin(row, 1);
        m_table.SetMax(row, 2);
        ExpectRow(row, "", 0, 0);
    }
}

TEST_F(DefaultScalingTest, AUnitKeepsNothingThatWouldBreakTheFile) {
    Store("A,1,2,\nB,3,4,\n");
    m_table.LoadDefaultScaling();
    m_table.SetUnit(0, "m,g\n/\r\x1A\xFFs\xB2");
    EXPECT_EQ(m_table.Row(0).unit, "mg/s\xB2");
    m_table.SetUnit(0, "mg / s");
    EXPECT_EQ(m_table.Row(0).unit, "mg / s");
    m_table.SetUnit(1, std::string(60, 'x'));
    EXPECT_EQ(m_table.Row(1).unit, std::string(39, 'x'));
    Saved();
    m_table.LoadDefaultScaling();
    EXPECT_EQ(m_table.LastIndex(), 1);
}

TEST_F(DefaultScalingTest, AppendingAddsAnEmptyRowUntilTheTableIsFull) {
    Store("A,1,2,\nB,3,4,\n");
    m_table.LoadDefaultScaling();
    Store("");
    m_table.LoadDefaultScaling();
    EXPECT_TRUE(m_table.AppendRow());
    EXPECT_EQ(m_table.LastIndex(), 0);
    ExpectRow(0, "", 0, 0);  // nothing of what the row held before
    for (int row = 1; row < 256; ++row) EXPECT_TRUE(m_table.AppendRow());
    EXPECT_FALSE(m_table.AppendRow());
    EXPECT_EQ(m_table.LastIndex(), 255);
}

}  // namespace
}  // namespace plotvane
