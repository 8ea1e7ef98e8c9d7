#include "scaling/PrefsFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "tests/support/TempFolder.h"

namespace plotvane {
namespace {

constexpr std::string_view kDefaultFile =
    "BackColor=0\r\nGridColor=ffffff\r\n"
    "Line0Color=ff\r\nLine1Color=ff00\r\nLine2Color=ffff\r\nLine3Color=ffc0c0\r\n"
    "Line4Color=a0ff\r\nLine5Color=ffff00\r\nLine6Color=a000\r\nLine7Color=7f0000\r\n"
    "Line8Color=60a0\r\nLine9Color=c0c0ff\r\nLine10Color=ffa000\r\nLine11Color=a0a000\r\n"
    "Thickness=0\r\nAutorun=1\r\nShowUnits=1\r\nShowZeros=0\r\nSaveWindowSize=1\r\n"
    "Width=27a\r\nHeight=1b1\r\nMaxMileage=60\r\nMaxConsumption=20\r\nFuelHistoryDepth=1\r\n";

// A record with no field at its default.
Prefs Changed() {
    Prefs prefs;
    prefs.backColor = 0x112233;
    prefs.gridColor = 0x445566;
    for (int i = 0; i < kSlotCount; ++i) prefs.lineColor[i] = static_cast<Colour>(0x100 + i);
    prefs.thickness = 4;
    prefs.autorun = prefs.showUnits = prefs.saveWindowSize = false;
    prefs.showZeros = true;
    prefs.width = 800;
    prefs.height = 600;
    prefs.maxMileage = 90;
    prefs.maxConsumption = 30;
    prefs.fuelHistoryDepth = 5;
    return prefs;
}

void ExpectEqual(const Prefs& prefs, const Prefs& expected) {
    EXPECT_EQ(prefs.backColor, expected.backColor);
    EXPECT_EQ(prefs.gridColor, expected.gridColor);
    EXPECT_EQ(prefs.lineColor, expected.lineColor);
    EXPECT_EQ(prefs.thickness, expected.thickness);
    EXPECT_EQ(prefs.autorun, expected.autorun);
    EXPECT_EQ(prefs.showUnits, expected.showUnits);
    EXPECT_EQ(prefs.showZeros, expected.showZeros);
    EXPECT_EQ(prefs.saveWindowSize, expected.saveWindowSize);
    EXPECT_EQ(prefs.width, expected.width);
    EXPECT_EQ(prefs.height, expected.height);
    EXPECT_EQ(prefs.maxMileage, expected.maxMileage);
    EXPECT_EQ(prefs.maxConsumption, expected.maxConsumption);
    EXPECT_EQ(prefs.fuelHistoryDepth, expected.fuelHistoryDepth);
}

class PrefsFileTest : public testing::Test {
protected:
    std::filesystem::path File() const { return m_folder / "Prefs.cfg"; }

    // The record after loading the text over a record with every field changed.
    Prefs Loaded(std::string_view text) {
        test::WriteBytes(File(), text);
        Prefs prefs = Changed();
        LoadPrefs(File(), prefs);
        return prefs;
    }
    std::string Saved(const Prefs& prefs, int width = 634, int height = 433) {
        EXPECT_EQ(SavePrefs(File(), prefs, width, height), 0);
        return test::BytesOf(File());
    }

    test::TempFolder m_folder;
};

// What loading a file without keys makes of the record: only the trace colours stay.
Prefs MissingKeys() {
    Prefs prefs;
    prefs.lineColor = Changed().lineColor;
    return prefs;
}

TEST_F(PrefsFileTest, TheDefaultRecordIsWrittenAs24Lines) {
    const std::string saved = Saved(Prefs{});
    EXPECT_EQ(saved, kDefaultFile);
    EXPECT_EQ(std::count(saved.begin(), saved.end(), '\n'), 24);
}

TEST_F(PrefsFileTest, WhatIsWrittenLoadsAsTheSameRecord) {
    const Prefs changed = Changed();
    const std::string saved = Saved(changed, changed.width, changed.height);
    ExpectEqual(Loaded(saved), changed);
    ExpectEqual(Loaded(kDefaultFile), Prefs{});
    EXPECT_EQ(Saved(Loaded(kDefaultFile)), kDefaultFile);
}

TEST_F(PrefsFileTest, TheCurrentWindowSizeIsWritten) {
    const std::string saved = Saved(Prefs{}, 1024, 768);
    EXPECT_NE(saved.find("\r\nWidth=400\r\nHeight=300\r\n"), std::string::npos) << saved;
}

TEST_F(PrefsFileTest, TheOldFileIsReplacedWhole) {
    test::WriteBytes(File(), std::string(5000, 'x') + "\r\nOther=1\r\n");
    EXPECT_EQ(Saved(Prefs{}), kDefaultFile);
}

TEST_F(PrefsFileTest, NegativeHexNumbersAreWrittenAsTheirTwosComplement) {
    Prefs prefs;
    prefs.thickness = -1;
    prefs.maxMileage = -5;
    const std::string saved = Saved(prefs, -32000, 1);
    EXPECT_NE(saved.find("\r\nThickness=ffffffff\r\n"), std::string::npos);
    EXPECT_NE(saved.find("\r\nWidth=ffff8300\r\nHeight=1\r\n"), std::string::npos);
    EXPECT_NE(saved.find("\r\nMaxMileage=-5\r\n"), std::string::npos);
    EXPECT_EQ(Loaded(saved).thickness, 0);    // reads as a missing key
    EXPECT_EQ(Loaded(saved).maxMileage, 60);  // and so does a minus sign
    EXPECT_EQ(Loaded(saved).width, -32000);
}

TEST_F(PrefsFileTest, ARejectedThicknessIsStillWritten) {
    Prefs prefs;
    prefs.thickness = 11;
    EXPECT_NE(Saved(prefs).find("\r\nThickness=b\r\n"), std::string::npos);
    EXPECT_EQ(Loaded("Thickness=b\n").thickness, 11);
}

TEST_F(PrefsFileTest, SavingFailsWhereTheFileCannotBeWritten) {
    EXPECT_EQ(SavePrefs(m_folder / "none" / "Prefs.cfg", Prefs{}, 634, 433), -1);
    std::filesystem::create_directory(m_folder / "taken.cfg");
    EXPECT_EQ(SavePrefs(m_folder / "taken.cfg", Prefs{}, 634, 433), -1);
    test::WriteBytes(File(), "Width=1\n");
    std::filesystem::permissions(File(), std::filesystem::perms::owner_read);
    EXPECT_EQ(SavePrefs(File(), Prefs{}, 634, 433), -1);
    EXPECT_EQ(test::BytesOf(File()), "Width=1\n");
    std::filesystem::permissions(File(), std::filesystem::perms::owner_all);
}

TEST_F(PrefsFileTest, AMissingFileGivesTheDefaultsButKeepsSaveWindowSize) {
    Prefs prefs = Changed();
    LoadPrefs(File(), prefs);
    Prefs expected;
    expected.saveWindowSize = false;
    ExpectEqual(prefs, expected);
    EXPECT_FALSE(std::filesystem::exists(File()));
}

TEST_F(PrefsFileTest, AnEmptyFileIsLikeAMissingOne) {
    Prefs expected;
    expected.saveWindowSize = false;
    ExpectEqual(Loaded(""), expected);
    ExpectEqual(Loaded("\xFFWidth=1\n"), expected);
}

TEST_F(PrefsFileTest, MissingKeysGiveTheDefaultsButKeepTheTraceColours) {
    ExpectEqual(Loaded("Thickness=0\n"), MissingKeys());
}

TEST_F(PrefsFileTest, AMissingTraceColourStaysAsItWas) {
    std::string text(kDefaultFile);
    text.erase(text.find("Line3Color=ffc0c0\r\n"), 19);
    Prefs expected;
    expected.lineColor[3] = 0x103;
    ExpectEqual(Loaded(text), expected);
}

TEST_F(PrefsFileTest, SwitchesAreOnUnlessZeroButShowZerosOnlyForOne) {
    const Prefs twos = Loaded("Width=1\nAutorun=2\nShowUnits=ff\nShowZeros=2\nSaveWindowSize=10\n");
    EXPECT_TRUE(twos.autorun);
    EXPECT_TRUE(twos.showUnits);
    EXPECT_FALSE(twos.showZeros);
    EXPECT_TRUE(twos.saveWindowSize);
    const Prefs zeros = Loaded("Width=1\nAutorun=0\nShowUnits=0\nShowZeros=0\nSaveWindowSize=00\n");
    EXPECT_FALSE(zeros.autorun);
    EXPECT_FALSE(zeros.showUnits);
    EXPECT_FALSE(zeros.showZeros);
    EXPECT_FALSE(zeros.saveWindowSize);
    EXPECT_TRUE(Loaded("Width=1\nShowZeros=1\n").showZeros);
}

TEST_F(PrefsFileTest, UnknownKeysAreIgnoredAndTheFirstOfTwoCounts) {
    const Prefs prefs = Loaded("; a remark\nColour=5\nMaxMileage=70\nMaxMileage=80\n");
    EXPECT_EQ(prefs.maxMileage, 70);
    EXPECT_EQ(prefs.maxConsumption, 20);
}

TEST_F(PrefsFileTest, ADecimalValueEndsAtItsFirstLetter) {
    const Prefs prefs = Loaded("MaxMileage=1a\nMaxConsumption=a\nFuelHistoryDepth=007\n");
    EXPECT_EQ(prefs.maxMileage, 1);
    EXPECT_EQ(prefs.maxConsumption, 20);  // not a decimal number at all: missing
    EXPECT_EQ(prefs.fuelHistoryDepth, 7);
}

TEST_F(PrefsFileTest, NumbersAreKeptAsTheFileHasThem) {
    const Prefs prefs = Loaded(
        "BackColor=ff123456\nThickness=7fffffff\nWidth=0\nHeight=ffffffe\nMaxMileage=99999999999\n"
        "FuelHistoryDepth=0\n");
    EXPECT_EQ(prefs.backColor, 0xFF123456);
    EXPECT_EQ(DrawableColour(prefs.backColor), 0x123456U);
    EXPECT_EQ(prefs.thickness, 0x7FFFFFFF);
    EXPECT_EQ(prefs.width, 0);
    EXPECT_EQ(prefs.height, 0xFFFFFFE);
    EXPECT_EQ(prefs.maxMileage, 2147483647);
    EXPECT_EQ(prefs.fuelHistoryDepth, 0);
}

TEST_F(PrefsFileTest, KeysAfter1024BytesAreMissing) {
    const auto padded = [](std::size_t length) { return "Width=1\n" + std::string(length - 8, '-'); };
    // A line end counts as one byte, so the last digit of "MaxMileage=70" is byte 1024.
    EXPECT_EQ(Loaded(padded(1024 - 13) + "MaxMileage=70\r\n").maxMileage, 70);
    EXPECT_EQ(Loaded(padded(1024 - 12) + "MaxMileage=70\r\n").maxMileage, 7);
    EXPECT_EQ(Loaded(padded(1024 - 11) + "MaxMileage=70\r\n").maxMileage, 60);
    EXPECT_EQ(Loaded("\r\n\r\n" + padded(1024 - 15) + "MaxMileage=70\r\n").maxMileage, 70);
    EXPECT_EQ(Loaded(padded(100000) + "MaxMileage=70\r\n").maxMileage, 60);
}

TEST(FindPrefsValue, ReadsHexAndDecimal) {
    EXPECT_EQ(FindPrefsValue("Width=27a\n", "Width", false), 634U);
    EXPECT_EQ(FindPrefsValue("Width=27A\n", "Width", false), 634U);
    EXPECT_EQ(FindPrefsValue("Width=27a\n", "Width", true), 27U);
    EXPECT_EQ(FindPrefsValue("Width=0", "Width", false), 0U);
}

TEST(FindPrefsValue, ConsidersTheFirstOccurrenceOnly) {
    EXPECT_EQ(FindPrefsValue("XWidth=1\nWidth=2\n", "Width", false), 1U);
    EXPECT_EQ(FindPrefsValue("Width:1\nWidth=2\n", "Width", false), kNoPrefsValue);
    EXPECT_EQ(FindPrefsValue("Width =1\n", "Width", false), kNoPrefsValue);
}

TEST(FindPrefsValue, DoesNotTakeTrace11ForTrace1) {
    EXPECT_EQ(FindPrefsValue("Line11Color=5\n", "Line1Color", false), kNoPrefsValue);
    EXPECT_EQ(FindPrefsValue("Line11Color=5\nLine1Color=6\n", "Line1Color", false), 6U);
}

TEST(FindPrefsValue, IsMissingWithoutADigit) {
    for (const std::string_view text :
         {"", "Wid", "Width", "Width=", "Width=\n", "Width= 1", "Width=-1", "Width=x1", "width=1"}) {
        EXPECT_EQ(FindPrefsValue(text, "Width", false), kNoPrefsValue) << text;
        EXPECT_EQ(FindPrefsValue(text, "Width", true), kNoPrefsValue) << text;
    }
    EXPECT_EQ(FindPrefsValue("Width=a", "Width", true), kNoPrefsValue);
}

TEST(FindPrefsValue, CountsElevenDigits) {
    EXPECT_EQ(FindPrefsValue("Width=000000000015", "Width", false), 1U);
    EXPECT_EQ(FindPrefsValue("Width=00000000015", "Width", true), 15U);
    EXPECT_EQ(FindPrefsValue("Width=ffffffff", "Width", false), kNoPrefsValue);
    EXPECT_EQ(FindPrefsValue("Width=123456789", "Width", false), kNoPrefsValue);  // more than 32 bits
}

constexpr std::string_view kOldFile =
    "0,0,ffffff,ff,ff00,ffff,ffc0c0,a0ff,ffff00,a000,7f0000,60a0,c0c0ff,ffa000,a0a000,1,1,";

TEST_F(PrefsFileTest, AFileWithoutKeysIsReadInTheOldForm) {
    Prefs expected;  // the trace colours of the text are the default ones
    expected.autorun = false;
    expected.showZeros = true;
    ExpectEqual(Loaded(kOldFile), expected);
}

TEST_F(PrefsFileTest, TheOldFormMayHaveOneTokenALine) {
    std::string text;
    for (const char c : kOldFile) text += c == ',' ? ",\r\n" : std::string(1, c);
    ExpectEqual(Loaded(text), Loaded(kOldFile));
}

TEST_F(PrefsFileTest, TheOldFormLeavesTheOtherFields) {
    test::WriteBytes(File(), "7,1,2,3,4,5,6,7,8,9,a,b,c,d,e,0,0,");
    Prefs prefs = Changed();
    EXPECT_EQ(LoadLegacyPrefs(File(), prefs), 1);
    Prefs expected = Changed();
    expected.autorun = true;
    expected.backColor = 1;
    expected.gridColor = 2;
    for (int i = 0; i < 12; ++i) expected.lineColor[i] = static_cast<Colour>(3 + i);
    expected.showUnits = false;
    expected.showZeros = false;
    ExpectEqual(prefs, expected);
}

TEST_F(PrefsFileTest, TheOldFormWithoutItsLastCommaKeepsWhatWasRead) {
    const std::string_view text = kOldFile.substr(0, kOldFile.size() - 1);
    test::WriteBytes(File(), text);
    Prefs prefs;
    EXPECT_EQ(LoadLegacyPrefs(File(), prefs), 0);
    EXPECT_FALSE(prefs.autorun);
    EXPECT_FALSE(prefs.showZeros);
    EXPECT_FALSE(Loaded(text).showZeros);
    EXPECT_TRUE(Loaded(text).showUnits);
}

TEST_F(PrefsFileTest, TheOldFormAnswersMinusOneWithoutAFileAndMakesTheFolder) {
    const std::filesystem::path file =
        m_folder.Path() / u"\u0413\u0430\u0440\u0430\u0436" / "Scaling" / "Prefs.cfg";
    Prefs prefs = Changed();
    EXPECT_EQ(LoadLegacyPrefs(file, prefs), -1);
    EXPECT_TRUE(std::filesystem::is_directory(file.parent_path()));
    const Prefs defaults;
    Prefs expected = Changed();
    expected.autorun = true;
    expected.backColor = defaults.backColor;
    expected.gridColor = defaults.gridColor;
    expected.lineColor = defaults.lineColor;
    ExpectEqual(prefs, expected);
}

TEST_F(PrefsFileTest, ASwitchAloneIsReadInTheOldFormAndKept) {
    Prefs noAutorun = MissingKeys();
    noAutorun.autorun = false;
    ExpectEqual(Loaded("Autorun=0\n"), noAutorun);
    Prefs noUnits = MissingKeys();
    noUnits.showUnits = false;
    ExpectEqual(Loaded("ShowUnits=0\n"), noUnits);
}

TEST_F(PrefsFileTest, EachOfTheOtherKeysMarksTheCurrentForm) {
    // In the old form, the tokens after the key would turn autorun off.
    for (const std::string key : {"BackColor", "GridColor", "Line0Color", "Line11Color", "Thickness", "Width",
                                  "Height", "MaxMileage", "MaxConsumption", "FuelHistoryDepth"}) {
        EXPECT_TRUE(Loaded(key + "=3,0,0,\n").autorun) << key;
    }
    for (const std::string key : {"Autorun", "ShowUnits", "ShowZeros", "SaveWindowSize", "Other"}) {
        EXPECT_FALSE(Loaded(key + "=3,0,0,\n").autorun) << key;
    }
}

TEST_F(PrefsFileTest, AFolderOfThatNameIsLikeAMissingFile) {
    std::filesystem::create_directory(File());
    Prefs prefs;
    LoadPrefs(File(), prefs);
    ExpectEqual(prefs, Prefs{});
}

TEST_F(PrefsFileTest, OnlyAnUnreadableFileIsUnknown) {
    Prefs prefs;
    EXPECT_TRUE(LoadPrefs(File(), prefs));
    for (const std::string_view text : {"", "Autorun=0\n", "0,0,0,\n"}) {
        test::WriteBytes(File(), text);
        EXPECT_TRUE(LoadPrefs(File(), prefs)) << text;
    }
    std::filesystem::remove(File());
    std::filesystem::create_directory(File());
    EXPECT_FALSE(LoadPrefs(File(), prefs));
}

}  // namespace
}  // namespace plotvane
