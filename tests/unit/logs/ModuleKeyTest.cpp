#include "logs/ModuleKey.h"

#include <gtest/gtest.h>

namespace plotvane {
namespace {

TEST(ModuleKey, WritesBlanksAsDashes) {
    EXPECT_EQ(ScalingFileNameOf("038 906 019 FT"), "038-906-019-FT.SCL");
    EXPECT_EQ(ScalingFileNameOf("038-906-019-FT"), "038-906-019-FT.SCL");
    EXPECT_EQ(ScalingFileNameOf("ABC 123 456"), "ABC-123-456.SCL");
}

TEST(ModuleKey, EndsAtTheFirstDotAfterTheFirstCharacter) {
    EXPECT_EQ(ScalingFileNameOf("ABC.DEF"), "ABC.SCL");
    EXPECT_EQ(ScalingFileNameOf("OBD.LBL"), "OBD.SCL");
    EXPECT_EQ(ScalingFileNameOf(".ABC.DEF"), ".ABC.SCL");
    EXPECT_EQ(ScalingFileNameOf("A."), "A.SCL");
}

TEST(ModuleKey, OfGenericObdDataIsObd) {
    EXPECT_EQ(ScalingFileNameOf("OBD"), kObdScalingFile);
}

TEST(ModuleKey, HasAtMostFifteenCharactersOfTheName) {
    EXPECT_EQ(ScalingFileNameOf("038 906 019 ABCD"), "038-906-019-ABC.SCL");
    EXPECT_EQ(ScalingFileNameOf(std::string(512, 'x')), std::string(15, 'x') + ".SCL");
}

TEST(ModuleKey, LosesTheBlanksOfAnEmptySuffixOnly) {
    EXPECT_EQ(ScalingFileNameOf("038 906 019 FT "), "038-906-019-FT.SCL");
    EXPECT_EQ(ScalingFileNameOf("038 906 019 F  "), "038-906-019-F.SCL");
    EXPECT_EQ(ScalingFileNameOf("038 906 019    "), "038-906-019-.SCL");  // the blank at 11 stays
    EXPECT_EQ(ScalingFileNameOf("038 906 019  "), "038-906-019-.SCL");
    EXPECT_EQ(ScalingFileNameOf("038 906 019 "), "038-906-019-.SCL");
    EXPECT_EQ(ScalingFileNameOf("038 906 019  T"), "038-906-019--T.SCL");
    EXPECT_EQ(ScalingFileNameOf("038 906 019 F TX"), "038-906-019-F-T.SCL");
    EXPECT_EQ(ScalingFileNameOf("ABC  "), "ABC--.SCL");  // blanks elsewhere are not a suffix
    EXPECT_EQ(ScalingFileNameOf("               "), "------------.SCL");
}

TEST(ModuleKey, OfAnEmptyNameIsTheExtension) {
    EXPECT_EQ(ScalingFileNameOf(""), ".SCL");
    EXPECT_EQ(KeyStemOf(".SCL"), "");
}

TEST(ModuleKey, CannotLeadOutOfTheFolder) {
    EXPECT_EQ(ScalingFileNameOf("\\/:*?\"<>|x"), "---------x.SCL");
    EXPECT_EQ(ScalingFileNameOf("..\\..\\x"), "..SCL");
    EXPECT_EQ(ScalingFileNameOf("C:\\autoexec"), "C--autoexec.SCL");
    EXPECT_EQ(ScalingFileNameOf("a\tb\x01"
                                "c\x7F"
                                "d\n"),
              "a-b-c-d-.SCL");
}

TEST(ModuleKey, KeepsLettersBeyondAscii) {
    EXPECT_EQ(ScalingFileNameOf("M\xFCller \xB0"), "M\xFCller-\xB0.SCL");
}

TEST(KeyStem, IsTheKeyWithoutItsExtension) {
    EXPECT_EQ(KeyStemOf("038-906-019-FT.SCL"), "038-906-019-FT");
    EXPECT_EQ(KeyStemOf("038 906 019 FT"), "038 906 019 FT");
}

TEST(LabelFileName, OfAModuleWithSuffix) {
    EXPECT_EQ(LabelFileNameOf("038-906-019-FT", LabelForm::Full), "038-906-019-FT.LBL");
    EXPECT_EQ(LabelFileNameOf("038-906-019-FT", LabelForm::Short), "038-906-019.LBL");
    EXPECT_EQ(LabelFileNameOf("038-906-019-ABC", LabelForm::Full), "038-906-019-ABC.LBL");
}

TEST(LabelFileName, OfAModuleWithoutSuffixIsTheSameInBothForms) {
    EXPECT_EQ(LabelFileNameOf("038-906-019", LabelForm::Full), "038-906-019.LBL");
    EXPECT_EQ(LabelFileNameOf("038-906-019", LabelForm::Short), "038-906-019.LBL");
    EXPECT_EQ(LabelFileNameOf("038-906-019-", LabelForm::Full), "038-906-019.LBL");
}

TEST(LabelFileName, HasDashesAfterTheThirdAndSixthCharacterWhateverStoodThere) {
    EXPECT_EQ(LabelFileNameOf("038x906y019zFT", LabelForm::Full), "038-906-019-FT.LBL");
}

TEST(LabelFileName, TakesLettersAndDigitsOfTheSuffixOneByOne) {
    EXPECT_EQ(LabelFileNameOf("038-906-019-F-T", LabelForm::Full), "038-906-019-FT.LBL");
    EXPECT_EQ(LabelFileNameOf("038-906-019--FT", LabelForm::Full), "038-906-019FT.LBL");
    EXPECT_EQ(LabelFileNameOf("038-906-019-\xFC"
                              "FT",
                              LabelForm::Full),
              "038-906-019FT.LBL");
}

TEST(LabelFileName, LeavesOutWhatAShortStemDoesNotHave) {
    EXPECT_EQ(LabelFileNameOf("OBD", LabelForm::Full), "OBD--.LBL");
    EXPECT_EQ(LabelFileNameOf("038-906-01", LabelForm::Short), "038-906-01.LBL");
    EXPECT_EQ(LabelFileNameOf("038-9", LabelForm::Full), "038-9-.LBL");
    EXPECT_EQ(LabelFileNameOf("", LabelForm::Full), "--.LBL");
}

TEST(ModuleSuffix, IsInUpperCaseAndEndsAtTheFirstOtherCharacter) {
    EXPECT_EQ(ModuleSuffixOf("038-906-019-ft"), "FT");
    EXPECT_EQ(ModuleSuffixOf("038-906-019-a1B"), "A1B");
    EXPECT_EQ(ModuleSuffixOf("038-906-019-F-T"), "F");
    EXPECT_EQ(ModuleSuffixOf("038-906-019--FT"), "");
    EXPECT_EQ(ModuleSuffixOf("038-906-019"), "");
    EXPECT_EQ(ModuleSuffixOf(""), "");
}

TEST(Letters, AreThoseOfAsciiInBothCases) {
    const std::string_view small = "abcdefghijklmnopqrstuvwxyz";
    const std::string_view capital = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    for (int byte = 0; byte < 256; ++byte) {
        const char c = static_cast<char>(byte);
        const bool isMember = std::string_view("0123456789").find(c) != std::string_view::npos ||
                              small.find(c) != std::string_view::npos ||
                              capital.find(c) != std::string_view::npos;
        EXPECT_EQ(IsLetterOrDigit(c), isMember) << byte;
        const auto letter = small.find(c);
        EXPECT_EQ(UpperCaseOf(c), letter == std::string_view::npos ? c : capital[letter]) << byte;
    }
}

// The letters of the extension are no part of the suffix.
TEST(ModuleSuffix, OfAKeyOfElevenCharactersIsEmpty) {
    EXPECT_EQ(ModuleSuffixOf(KeyStemOf(ScalingFileNameOf("038 906 019"))), "");
}

}  // namespace
}  // namespace plotvane
