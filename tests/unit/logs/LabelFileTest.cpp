#include "logs/LabelFile.h"

#include <gtest/gtest.h>

#include "tests/support/TempFolder.h"

namespace plotvane {
namespace {

LabelTable Parsed(std::string_view line) {
    LabelTable table;
    ParseLabelLine(line, table);
    return table;
}

TEST(ParseLabelLine, EntersNameAndSecondTextOfAField) {
    const LabelTable table = Parsed("001,1,Engine speed,actual");
    EXPECT_EQ(table.FieldName(1, 1), "Engine speed");
    EXPECT_EQ(table.FieldSecondText(1, 1), "actual");
    EXPECT_EQ(table.GroupTitle(1), "");
}

TEST(ParseLabelLine, EntersOnlyTheTitleForFieldZero) {
    const LabelTable table = Parsed("007,0,Idle,dropped");
    EXPECT_EQ(table.GroupTitle(7), "Idle");
    for (int field = 1; field <= 4; ++field) {
        EXPECT_EQ(table.FieldName(7, field), "");
        EXPECT_EQ(table.FieldSecondText(7, field), "");
    }
}

TEST(ParseLabelLine, ReadsGroupsOfOneToThreeDigits) {
    EXPECT_EQ(Parsed("7,2,a").FieldName(7, 2), "a");
    EXPECT_EQ(Parsed("07,2,a").FieldName(7, 2), "a");
    EXPECT_EQ(Parsed("255,4,a").FieldName(255, 4), "a");
}

TEST(ParseLabelLine, TakesAFieldWithoutSecondText) {
    const LabelTable table = Parsed("001,4,Duty");
    EXPECT_EQ(table.FieldName(1, 4), "Duty");
    EXPECT_EQ(table.FieldSecondText(1, 4), "");
}

TEST(ParseLabelLine, EndsTextsAtACommaOrAComment) {
    EXPECT_EQ(Parsed("001,1,Speed;note,x").FieldName(1, 1), "Speed");
    EXPECT_EQ(Parsed("001,1,Speed;note,x").FieldSecondText(1, 1), "");
    EXPECT_EQ(Parsed("001,1,Speed,actual;note").FieldSecondText(1, 1), "actual");
    EXPECT_EQ(Parsed("001,1,Speed,actual,more").FieldSecondText(1, 1), "actual");
}

TEST(ParseLabelLine, KeepsBlanksAndEmptyTexts) {
    EXPECT_EQ(Parsed("001,1, Speed , actual ").FieldName(1, 1), " Speed ");
    EXPECT_EQ(Parsed("001,1, Speed , actual ").FieldSecondText(1, 1), " actual ");
    EXPECT_EQ(Parsed("001,1,,actual").FieldName(1, 1), "");
    EXPECT_EQ(Parsed("001,1,,actual").FieldSecondText(1, 1), "actual");
}

TEST(ParseLabelLine, CutsLongTextsAndStillFindsTheSecond) {
    const LabelTable table = Parsed("001,1," + std::string(300, 'n') + "," + std::string(300, 's'));
    EXPECT_EQ(table.FieldName(1, 1), std::string(128, 'n'));
    EXPECT_EQ(table.FieldSecondText(1, 1), std::string(32, 's'));
}

TEST(ParseLabelLine, IgnoresLinesThatNameNoField) {
    for (const auto* line : {"", ";001,1,x", ";", "REDIRECT,x.LBL,FT", "x", "001", "001,", "001,1", "001,1;x",
                             "001;1,x", "001,x,x", "001,12,x", "001, 1,x", " 001,1,x", "-01,1,x", "0011,1,x",
                             "001,,x", ",1,x", "001,-1,x"}) {
        const LabelTable table = Parsed(line);
        for (int group = 0; group <= 256; ++group)
            for (int field = 0; field <= 5; ++field)
                EXPECT_EQ(table.GroupTitle(group) + table.FieldName(group, field), "") << line;
    }
}

TEST(ParseLabelLine, IgnoresGroupsAndFieldsOutOfRange) {
    for (const auto* line : {"001,5,x,y", "001,9,x,y", "256,1,x,y", "000,1,x,y", "999,0,x", "000,0,x"}) {
        const LabelTable table = Parsed(line);
        for (int group = 0; group <= 1000; ++group)
            for (int field = 0; field <= 9; ++field)
                EXPECT_EQ(table.GroupTitle(group) + table.FieldName(group, field), "") << line;
    }
}

class ReadLabelLineTest : public testing::Test {
protected:
    std::vector<std::string> LinesOf(std::string_view bytes) {
        test::WriteBytes(m_folder / "x.LBL", bytes);
        TextInput input(m_folder / "x.LBL");
        std::vector<std::string> lines;
        for (std::string line; ReadLabelLine(input, line);) lines.push_back(line);
        return lines;
    }
    test::TempFolder m_folder;
};

TEST_F(ReadLabelLineTest, GivesLinesWithoutTheirEnds) {
    EXPECT_EQ(LinesOf("a\r\n\r\nb\n"), (std::vector<std::string>{"a", "", "b"}));
}

TEST_F(ReadLabelLineTest, DoesNotUseALastLineWithoutLineEnd) {
    EXPECT_EQ(LinesOf("a\nb"), (std::vector<std::string>{"a"}));
    EXPECT_EQ(LinesOf("a\nb\xFF\nc\n"), (std::vector<std::string>{"a"}));
    EXPECT_TRUE(LinesOf("a").empty());
    EXPECT_TRUE(LinesOf("").empty());
}

TEST_F(ReadLabelLineTest, DropsTheRestOfAVeryLongLine) {
    const auto lines = LinesOf(std::string(1000000, 'x') + "\nb\n");
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0], std::string(kMaxLabelLineLength, 'x'));
    EXPECT_EQ(lines[1], "b");
}

TEST(Redirect, SendsTheListedSuffixesInAnyLetterCase) {
    EXPECT_EQ(RedirectTargetOf("REDIRECT,038-906-019-B.LBL,FT,GH", "FT"), "038-906-019-B.LBL");
    EXPECT_EQ(RedirectTargetOf("REDIRECT,038-906-019-B.LBL,FT,GH", "GH"), "038-906-019-B.LBL");
    EXPECT_EQ(RedirectTargetOf("Redirect,x.lbl,ft,gH", "FT"), "x.lbl");
    EXPECT_EQ(RedirectTargetOf("redirect,x.lbl,ft,gH", "GH"), "x.lbl");
    EXPECT_EQ(RedirectTargetOf("REDIRECT,x.LBL,A,B,C,A1B", "A1B"), "x.LBL");
}

TEST(Redirect, DoesNotSendOtherSuffixes) {
    for (const auto* suffix : {"", "F", "T", "FTX", "G", "FTG"})
        EXPECT_EQ(RedirectTargetOf("REDIRECT,x.LBL,FT,GH", suffix), std::nullopt) << suffix;
}

TEST(Redirect, SendsModulesWithoutSuffixByAnEmptyItem) {
    EXPECT_EQ(RedirectTargetOf("REDIRECT,x.LBL,,", ""), "x.LBL");
    EXPECT_EQ(RedirectTargetOf("REDIRECT,x.LBL,,FT", ""), "x.LBL");
    EXPECT_EQ(RedirectTargetOf("REDIRECT,x.LBL,FT,,GH", ""), "x.LBL");
    EXPECT_EQ(RedirectTargetOf("REDIRECT,x.LBL,,", "FT"), std::nullopt);
    EXPECT_EQ(RedirectTargetOf("REDIRECT,x.LBL,,FT", "FT"), "x.LBL");
}

TEST(Redirect, TakesTheEndOfTheListForNoItem) {
    EXPECT_EQ(RedirectTargetOf("REDIRECT,x.LBL,FT,", ""), std::nullopt);
    EXPECT_EQ(RedirectTargetOf("REDIRECT,x.LBL,", ""), std::nullopt);
    EXPECT_EQ(RedirectTargetOf("REDIRECT,x.LBL,FT,;note,,", ""), std::nullopt);
}

TEST(Redirect, AllowsACommentAfterTheList) {
    EXPECT_EQ(RedirectTargetOf("REDIRECT,x.LBL,FT ; note", "FT"), "x.LBL");
    EXPECT_EQ(RedirectTargetOf("REDIRECT,x.LBL,GH;FT,FT", "FT"), std::nullopt);
}

TEST(Redirect, DoesNotMatchAnItemThatIsTooLong) {
    EXPECT_EQ(RedirectTargetOf("REDIRECT,x.LBL,ABCDE", "ABCD"), std::nullopt);
    EXPECT_EQ(RedirectTargetOf("REDIRECT,x.LBL,ABCDE,FT", "FT"), "x.LBL");
}

TEST(Redirect, TakesATargetOfNineteenCharacters) {
    EXPECT_EQ(RedirectTargetOf("REDIRECT,038-906-019-ABC.LBL,FT", "FT"), "038-906-019-ABC.LBL");
    EXPECT_EQ(RedirectTargetOf("REDIRECT,038-906-019-ABCD.LBL,FT", "FT"), std::nullopt);
}

TEST(Redirect, AppliesOnlyToAWellFormedLine) {
    for (const auto* line :
         {"", ";REDIRECT,x.LBL,FT", "REDIRECTS,x.LBL,FT", "REDIREC,x.LBL,FT", " REDIRECT,x.LBL,FT",
          "REDIRECT x.LBL,FT", "REDIRECT", "REDIRECT,", "REDIRECT,x.LBL", "REDIRECT,x y.LBL,FT",
          "REDIRECT,..\\x.LBL,FT", "REDIRECT,../x.LBL,FT", "REDIRECT,x_y.LBL,FT", "001,1,x,FT"})
        EXPECT_EQ(RedirectTargetOf(line, "FT"), std::nullopt) << line;
}

class LoadLabelsTest : public testing::Test {
protected:
    void Write(std::string_view name, std::string_view text) { test::WriteBytes(m_folder / name, text); }
    LabelTable Loaded(std::string_view stem) {
        LabelTable table;
        LoadLabels(m_folder.Path(), stem, table);
        return table;
    }
    std::string TitleFor(std::string_view stem) { return Loaded(stem).GroupTitle(1); }
    test::TempFolder m_folder;
};

TEST_F(LoadLabelsTest, ReadsTheFileOfTheModuleItself) {
    Write("038-906-019-FT.LBL", "; labels\r\n001,0,Engine\r\n001,1,Engine speed,actual\r\n");
    Write("038-906-019.LBL", "001,0,Part\n");
    const LabelTable table = Loaded("038-906-019-FT");
    EXPECT_EQ(table.GroupTitle(1), "Engine");
    EXPECT_EQ(table.FieldName(1, 1), "Engine speed");
    EXPECT_EQ(table.FieldSecondText(1, 1), "actual");
}

TEST_F(LoadLabelsTest, ReadsTheFileOfThePartNumberOtherwise) {
    Write("038-906-019.LBL", "001,0,Part\n");
    EXPECT_EQ(TitleFor("038-906-019-FT"), "Part");
    EXPECT_EQ(TitleFor("038-906-019"), "Part");
}

TEST_F(LoadLabelsTest, IsEmptyWithoutAFile) {
    EXPECT_EQ(TitleFor("038-906-019-FT"), "");
    EXPECT_EQ(TitleFor("OBD"), "");
    EXPECT_EQ(TitleFor(""), "");
}

TEST_F(LoadLabelsTest, ForgetsTheLabelsOfTheModuleBefore) {
    Write("038-906-019-FT.LBL", "001,0,Engine\n");
    LabelTable table;
    LoadLabels(m_folder.Path(), "038-906-019-FT", table);
    LoadLabels(m_folder.Path(), "038-906-018-FT", table);
    EXPECT_EQ(table.GroupTitle(1), "");
}

TEST_F(LoadLabelsTest, DoesNotFollowARedirectInTheFileOfTheModule) {
    Write("038-906-019-FT.LBL", "REDIRECT,x.LBL,FT\n002,0,Own\n");
    Write("x.LBL", "001,0,Target\n");
    EXPECT_EQ(TitleFor("038-906-019-FT"), "");
    EXPECT_EQ(Loaded("038-906-019-FT").GroupTitle(2), "Own");
}

TEST_F(LoadLabelsTest, FollowsARedirectInTheFileOfThePartNumber) {
    Write("038-906-019.LBL", "001,0,Part\nREDIRECT,x.LBL,FT,GH\n");
    Write("x.LBL", "002,0,Target\n");
    for (const auto* stem : {"038-906-019-FT", "038-906-019-ft", "038-906-019-GH"}) {
        EXPECT_EQ(Loaded(stem).GroupTitle(2), "Target") << stem;
        EXPECT_EQ(Loaded(stem).GroupTitle(1), "") << stem;  // nothing stays of the redirecting file
    }
    for (const auto* stem : {"038-906-019-AB", "038-906-019-F", "038-906-019"}) {
        EXPECT_EQ(Loaded(stem).GroupTitle(1), "Part") << stem;
        EXPECT_EQ(Loaded(stem).GroupTitle(2), "") << stem;
    }
}

TEST_F(LoadLabelsTest, TakesTheFirstRedirectThatApplies) {
    Write("038-906-019.LBL", "REDIRECT,a.LBL,GH\nREDIRECT,b.LBL,FT\nREDIRECT,c.LBL,FT\n");
    Write("a.LBL", "001,0,A\n");
    Write("b.LBL", "001,0,B\nREDIRECT,c.LBL,FT\n");
    Write("c.LBL", "001,0,C\n");
    EXPECT_EQ(TitleFor("038-906-019-FT"), "B");
}

TEST_F(LoadLabelsTest, RedirectsAModuleOfElevenCharactersByAnEmptyItem) {
    Write("038-906-019.LBL", "001,0,Part\nREDIRECT,x.LBL,,\n");
    Write("x.LBL", "001,0,Target\n");
    const std::string key = ScalingFileNameOf("038 906 019");
    EXPECT_EQ(TitleFor(KeyStemOf(key)), "Target");
    EXPECT_EQ(TitleFor("038-906-019-FT"), "Part");
}

// The example of docs/file-formats-logs.md.
TEST_F(LoadLabelsTest, ReadsTheExampleOfTheDocumentation) {
    Write("038-906-019.LBL",
          "; engine control, all suffixes\r\n"
          "REDIRECT,038-906-019-G.LBL,GH,GK\r\n"
          "001,0,Basic values\r\n"
          "001,1,Engine speed,actual\r\n"
          "001,2,Coolant,temperature ; measured at the outlet\r\n");
    Write("038-906-019-G.LBL", "001,0,Others\r\n");
    const LabelTable table = Loaded("038-906-019-FT");
    EXPECT_EQ(table.GroupTitle(1), "Basic values");
    EXPECT_EQ(table.FieldName(1, 1), "Engine speed");
    EXPECT_EQ(table.FieldSecondText(1, 1), "actual");
    EXPECT_EQ(table.FieldName(1, 2), "Coolant");
    EXPECT_EQ(table.FieldSecondText(1, 2), "temperature ");
    EXPECT_EQ(TitleFor("038-906-019-GH"), "Others");
}

TEST_F(LoadLabelsTest, IsEmptyIfTheTargetCannotBeOpened) {
    for (const auto* target : {"none.LBL", "..", ".", "", "NUL", "con.LBL", "COM1"}) {
        Write("038-906-019.LBL", "001,0,Part\nREDIRECT," + std::string(target) + ",FT\n");
        EXPECT_EQ(TitleFor("038-906-019-FT"), "") << target;
    }
}

TEST_F(LoadLabelsTest, DoesNotUseARedirectWithoutLineEnd) {
    Write("038-906-019.LBL", "001,0,Part\nREDIRECT,x.LBL,FT");
    Write("x.LBL", "001,0,Target\n");
    EXPECT_EQ(TitleFor("038-906-019-FT"), "Part");
}

TEST_F(LoadLabelsTest, ReadsAFileOfAModuleWithAnUmlaut) {
    const auto path = BuildLabelPath(m_folder.Path(), "M\xFCller-12345", LabelForm::Full);
    EXPECT_EQ(path.filename().u16string(), u"M\u00FCl-er--234.LBL");
    test::WriteBytes(path, "001,0,Umlaut\n");
    EXPECT_EQ(TitleFor("M\xFCller-12345"), "Umlaut");
}

// No longer wants the labels at question number `wanted`.
struct Impatience : ReadWatch {
    bool GoOn() override { return ++asked < wanted; }

    int asked = 0;
    int wanted = 0;
};

TEST_F(LoadLabelsTest, ReadsNoFileFurtherThanIsWanted) {
    const std::string labels = "001,0,Part\n" + std::string(1'000'000, ';') + "\n001,0,Other\n";
    for (const auto* name : {"038-906-019-FT.LBL", "038-906-019.LBL"}) {
        Write(name, labels);
        Impatience watch;
        watch.wanted = 2;
        LabelTable table;
        LoadLabels(m_folder.Path(), "038-906-019-FT", table, &watch);
        EXPECT_EQ(watch.asked, 2) << name;
        watch.wanted = 1'000;
        LoadLabels(m_folder.Path(), "038-906-019-FT", table, &watch);
        EXPECT_EQ(table.GroupTitle(1), "Other") << name;
        std::filesystem::remove(m_folder / name);
    }
}

}  // namespace
}  // namespace plotvane
