#include "logs/CurrentModule.h"

#include <gtest/gtest.h>

#include "tests/support/TempFolder.h"

namespace plotvane {
namespace {

struct TitleLog : MainWindow {
    void SetModuleTitle(std::u16string_view title) override { titles.emplace_back(title); }
    void ShowMessage(int, int) override { FAIL() << "there must be no message"; }
    std::optional<std::filesystem::path> ChooseLog() override { return std::nullopt; }
    void StayAwake(bool) override { FAIL() << "nothing to stay awake for"; }
    void Close() override { FAIL() << "nothing to close for"; }
    std::vector<std::u16string> titles;
};

class CurrentModuleTest : public testing::Test {
protected:
    CurrentModuleTest() {
        std::filesystem::create_directory(m_folder / "labels");
        m_scaling.ForgetLoadedName();
    }

    // As the loop does once a record is parsed.
    void LoadScaling() { ASSERT_EQ(m_scaling.LoadModuleScaling(m_module.Key()), ModuleLoad::Loaded); }
    void StartLoop() {
        ++m_state.generation;
        m_scaling.ForgetLoadedName();
    }
    void WriteLabels(std::string_view name, std::string_view text) {
        test::WriteBytes(m_folder / "labels" / name, text);
    }

    test::TempFolder m_folder;
    RunState m_state;
    DefaultScaling m_defaults{m_folder / "Scaling"};
    ModuleScaling m_scaling{m_folder / "Scaling", m_defaults, m_state};
    TitleLog m_titleBar;
    CurrentModule m_module{m_state, m_scaling, m_titleBar, "Plotvane  -  Live Data  -  ",
                           m_folder / "labels"};
};

TEST_F(CurrentModuleTest, TakesNameKeyTitleAndLabelsFromTheFirstRecord) {
    WriteLabels("038-906-019-FT.LBL", "001,1,Engine speed,actual\r\n");
    EXPECT_EQ(m_module.ApplyModuleName("038 906 019 FT,G001,F0,780,/min,"), 15u);
    EXPECT_EQ(m_module.Name(), "038 906 019 FT");
    EXPECT_EQ(m_module.Key(), "038-906-019-FT.SCL");
    EXPECT_EQ(m_titleBar.titles, std::vector<std::u16string>{u"Plotvane  -  Live Data  -  038 906 019 FT"});
    EXPECT_EQ(m_module.Labels().FieldName(1, 1), "Engine speed");
    EXPECT_EQ(m_module.Labels().FieldSecondText(1, 1), "actual");
    EXPECT_FALSE(m_state.obdFile);
}

TEST_F(CurrentModuleTest, NamesTheLogInTheTitleInLogMode) {
    m_state.logMode = true;
    m_module.SetLogFileName(u"x.csv");
    m_module.ApplyModuleName("038-906-019-FT,G000,,,,");
    EXPECT_EQ(m_titleBar.titles, std::vector<std::u16string>{u"Plotvane   -   038-906-019-FT  -   x.csv"});
}

TEST_F(CurrentModuleTest, NamesModuleAndLogInTheTitleInTheirOwnCharacters) {
    m_state.logMode = true;
    m_module.SetLogFileName(u"\u041C\u043E\u0438 \u8ECA.csv");
    m_module.ApplyModuleName("M\xFCller \x80,G000,,,,");
    EXPECT_EQ(m_titleBar.titles.back(),
              u"Plotvane   -   M\u00FCller \u20AC  -   \u041C\u043E\u0438 \u8ECA.csv");
}

TEST_F(CurrentModuleTest, ChangesNothingForARecordWithoutComma) {
    EXPECT_EQ(m_module.ApplyModuleName("038 906 019 FT"), std::nullopt);
    EXPECT_EQ(m_module.ApplyModuleName(""), std::nullopt);
    EXPECT_EQ(m_module.Name(), "");
    EXPECT_EQ(m_module.Key(), "");
    EXPECT_TRUE(m_titleBar.titles.empty());
    m_module.ApplyModuleName("ABC 123 456,");
    EXPECT_EQ(m_module.ApplyModuleName(std::string(513, 'x')), std::nullopt);
    EXPECT_EQ(m_module.Key(), "ABC-123-456.SCL");
}

TEST_F(CurrentModuleTest, KeepsTheModuleOnceItsScalingIsLoaded) {
    m_module.ApplyModuleName("ABC 123 456,");
    LoadScaling();
    EXPECT_EQ(m_module.ApplyModuleName("DEF 1,"), 6u);
    EXPECT_EQ(m_module.Name(), "ABC 123 456");
    EXPECT_EQ(m_module.Key(), "ABC-123-456.SCL");
    EXPECT_EQ(m_titleBar.titles.size(), 1u);
}

TEST_F(CurrentModuleTest, FollowsAnotherModuleWhenTheLoopStartsAgain) {
    m_module.ApplyModuleName("ABC 123 456,");
    LoadScaling();
    StartLoop();
    m_module.ApplyModuleName("DEF,");
    EXPECT_EQ(m_module.Key(), "DEF.SCL");
    EXPECT_EQ(m_titleBar.titles.back(), u"Plotvane  -  Live Data  -  DEF");
}

// With records of generic OBD values alone, nothing ever loads a scaling.
TEST_F(CurrentModuleTest, FollowsEachRecordWhileNoScalingIsLoaded) {
    m_module.ApplyModuleName("ABC,");
    m_module.ApplyModuleName("DEF,");
    EXPECT_EQ(m_module.Key(), "DEF.SCL");
    EXPECT_EQ(m_module.ApplyModuleName("DEF,"), 4u);
    EXPECT_EQ(m_titleBar.titles.size(), 2u);
}

TEST_F(CurrentModuleTest, ReadsTheLabelsOnceInARunOfTheLoop) {
    WriteLabels("038-906-019-FT.LBL", "001,0,first\n");
    StartLoop();
    m_module.ApplyModuleName("038 906 019 FT,");
    WriteLabels("038-906-019-FT.LBL", "001,0,second\n");
    m_module.ApplyModuleName("038 906 019 FT,");
    EXPECT_EQ(m_module.Labels().GroupTitle(1), "first");
    StartLoop();
    m_module.ApplyModuleName("038 906 019 FT,");
    EXPECT_EQ(m_module.Labels().GroupTitle(1), "second");
}

TEST_F(CurrentModuleTest, MarksGenericObdDataForGood) {
    for (const auto* name : {"OB", "OBD2", "obd", "XOBD"}) m_module.ApplyModuleName(std::string(name) + ",");
    EXPECT_FALSE(m_state.obdFile);
    m_module.ApplyModuleName("OBD,G012,F0,780,/min,");
    EXPECT_EQ(m_module.Key(), "OBD.SCL");
    EXPECT_TRUE(m_state.obdFile);
    StartLoop();
    m_module.ApplyModuleName("038 906 019 FT,");
    EXPECT_TRUE(m_state.obdFile);
}

TEST_F(CurrentModuleTest, TakesObdLogsForGenericObdDataToo) {
    m_module.ApplyModuleName("OBD.LBL,G012,F0,780,/min,");
    EXPECT_EQ(m_module.Name(), "OBD.LBL");
    EXPECT_EQ(m_module.Key(), "OBD.SCL");
    EXPECT_TRUE(m_state.obdFile);
}

TEST_F(CurrentModuleTest, TakesItsNameFromTheFirstRecordOfALogWhateverTheHeaderSaid) {
    m_module.ApplyModuleName("ABC,");
    LoadScaling();
    for (const auto* raw : {"038 906 019 FT", "", "Bogus", "ABC"}) {
        m_module.SetRawKey(raw);
        EXPECT_EQ(m_module.Key(), raw);
        StartLoop();
        m_module.ApplyModuleName("038-906-019-FT,");
        EXPECT_EQ(m_module.Key(), "038-906-019-FT.SCL") << raw;
    }
}

TEST_F(CurrentModuleTest, BoundsTheKeyButNotTheNameOfALongIdentifier) {
    EXPECT_EQ(m_module.ApplyModuleName(std::string(511, 'x') + ","), 512u);
    EXPECT_EQ(m_module.Name(), std::string(511, 'x'));
    EXPECT_EQ(m_module.Key(), std::string(15, 'x') + ".SCL");
}

TEST_F(CurrentModuleTest, TakesAnEmptyName) {
    EXPECT_EQ(m_module.ApplyModuleName(",G000,,,,"), 1u);
    EXPECT_EQ(m_module.Name(), "");
    EXPECT_EQ(m_module.Key(), ".SCL");
}

}  // namespace
}  // namespace plotvane
