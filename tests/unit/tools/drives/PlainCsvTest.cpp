#include "tools/drives/PlainCsv.h"

#include <gtest/gtest.h>

#include "tests/support/TempFolder.h"

namespace plotvane {
namespace {

class PlainCsv : public testing::Test {
protected:
    PlainCsvResult Load(std::string_view text) {
        test::WriteBytes(m_folder / "d.csv", text);
        return LoadPlainCsv(m_folder / "d.csv");
    }

private:
    test::TempFolder m_folder;
};

TEST_F(PlainCsv, HoldsEachValueUntilTheNext) {
    const auto [drive, error, ignored, dropped] = Load("t,rpm,volt\n1.0,780,13.9\r\n2.5,1240,14.05\n");
    ASSERT_TRUE(drive) << error;
    EXPECT_EQ(drive->Seconds(), 1.5);
    EXPECT_EQ(ValueText(*drive, 0, 0), "780");
    EXPECT_EQ(ValueText(*drive, 0, 1.49), "780");
    EXPECT_EQ(ValueText(*drive, 0, 1.5), "1240");
    EXPECT_EQ(ValueText(*drive, 0, 99), "1240");
    EXPECT_EQ(ValueText(*drive, 0, -1), "780");
    EXPECT_EQ(ValueText(*drive, 1, 0), "13.90");
    EXPECT_EQ(ValueText(*drive, 1, 2), "14.05");
    EXPECT_EQ(dropped, 0);
}

TEST_F(PlainCsv, GivesEachGroupItsOwnClock) {
    const auto [drive, error, ignored, dropped] = Load("t_a,rpm,t_b,volt\n1,100,3,12\n2,200,4,13\n");
    ASSERT_TRUE(drive) << error;
    EXPECT_EQ(drive->Seconds(), 3);
    EXPECT_EQ(drive->Value(0, 1), 200);
    EXPECT_EQ(drive->Value(4, 1), 12);  // its first value holds from the start
    EXPECT_EQ(drive->Value(4, 3), 13);
}

TEST_F(PlainCsv, MissingAndInvalidCellsKeepTheValueBefore) {
    const auto [drive, error, ignored, dropped] =
        Load("t,a_pct,b_pct\n0,5,n/a\n1,,7\n2\n3,1e3,\"8\"\n4,nan,inf\n");
    ASSERT_TRUE(drive) << error;
    EXPECT_EQ(drive->Value(0, 0), 5);
    EXPECT_EQ(drive->Value(1, 0), 0);
    EXPECT_EQ(drive->Value(0, 1), 5);
    EXPECT_EQ(drive->Value(1, 1), 7);
    EXPECT_EQ(drive->Value(0, 2), 5);
    EXPECT_EQ(drive->Value(0, 3), 1000);
    EXPECT_EQ(drive->Value(1, 3), 8);
    EXPECT_EQ(drive->Value(0, 4), 1000);
    EXPECT_EQ(drive->Value(1, 4), 8);
    EXPECT_EQ(dropped, 0);
}

TEST_F(PlainCsv, DropsRowsWhoseTimeGoesBackOrIsMissing) {
    const auto [drive, error, ignored, dropped] = Load("t,rpm\n1,10\nx,20\n0.5,30\n1e300,40\n2,50\n\n");
    ASSERT_TRUE(drive) << error;
    EXPECT_EQ(dropped, 3);
    EXPECT_EQ(drive->Seconds(), 1);
    EXPECT_EQ(drive->Value(0, 0), 10);
    EXPECT_EQ(drive->Value(0, 1), 50);
}

TEST_F(PlainCsv, RangesComeFromTheWholeDrive) {
    const auto [drive, error, ignored, dropped] = Load("t,rpm\n0,1000\n1,500\n2,3000\n");
    ASSERT_TRUE(drive) << error;
    EXPECT_EQ(RawByte(*drive, 0, 1), 0);
    EXPECT_EQ(RawByte(*drive, 0, 0), 51);  // a fifth of 255
    EXPECT_EQ(RawByte(*drive, 0, 2), 255);
}

TEST_F(PlainCsv, RangesMayBeWiderThanTheLargestDouble) {
    const auto [drive, error, ignored, dropped] = Load("t,x\n0,-1e308\n1,0\n2,1e308\n");
    ASSERT_TRUE(drive) << error;
    EXPECT_EQ(RawByte(*drive, 0, 0), 0);
    EXPECT_EQ(RawByte(*drive, 0, 1), 128);  // half of 255, rounded away from zero
    EXPECT_EQ(RawByte(*drive, 0, 2), 255);
}

TEST_F(PlainCsv, TakesAByteOrderMarkAndBlanks) {
    const auto [drive, error, ignored, dropped] = Load("\xEF\xBB\xBFt, speed_kmh \n 0 , 12 \n");
    ASSERT_TRUE(drive) << error;
    EXPECT_EQ(drive->Channels()[0].unit, "km/h");
    EXPECT_EQ(drive->Value(0, 0), 12);
}

TEST_F(PlainCsv, SaysWhatIsWrong) {
    EXPECT_EQ(LoadPlainCsv("no such file.csv").error, "cannot be opened");
    for (const char* text : {"", "rpm,volt\n1,2\n", "t\n1\n", "time,rpm\n0,1\n"})
        EXPECT_EQ(Load(text).error, "has no column named t or t_..., followed by channels") << text;
    for (const char* text : {"t,rpm", "t,rpm\n", "t,rpm\n\n\n", "t,rpm\nx,5\n"})
        EXPECT_EQ(Load(text).error, "holds no numbers") << text;
}

TEST_F(PlainCsv, SurvivesLongLinesAndManyColumns) {
    std::string text = "t";
    for (int i = 0; i < 2000; ++i) text += ",c" + std::to_string(i);
    text += "\n0," + std::string(1'000'000, '9') + ",5\n1,2\n";
    const auto [drive, error, ignored, dropped] = Load(text);
    ASSERT_TRUE(drive) << error;
    EXPECT_EQ(drive->Value(0, 1), 2);
    EXPECT_EQ(ignored.size(), 64u - 13u);
}

TEST_F(PlainCsv, ReadsNoMoreThan200000Lines) {
    std::string text = "t,x\n";
    for (int i = 0; i <= 200'000; ++i) text += "0,1\n";
    EXPECT_EQ(Load(text).error, "has more than 200,000 lines");
}

}  // namespace
}  // namespace plotvane
