#include "scaling/ScalingTokens.h"

#include <gtest/gtest.h>

#include "scaling/FieldScaling.h"
#include "tests/support/TempFolder.h"

namespace plotvane {
namespace {

class ScalingTokens : public testing::Test {
protected:
    TextInput Reading(std::string_view bytes) {
        test::WriteBytes(m_folder / "tokens", bytes);
        return TextInput(m_folder / "tokens");
    }
    test::TempFolder m_folder;
};

TEST_F(ScalingTokens, TextEndsAtTheCommaWhichIsTaken) {
    TextInput input = Reading("km/h,,V,");
    EXPECT_EQ(ReadTextToken(input), "km/h");
    EXPECT_EQ(ReadTextToken(input), "");
    EXPECT_EQ(ReadTextToken(input), "V");
}

TEST_F(ScalingTokens, TextIsEofAtTheEndEvenAfterSomeCharacters) {
    TextInput input = Reading("V,rest");
    EXPECT_EQ(ReadTextToken(input), "V");
    EXPECT_EQ(ReadTextToken(input), "EOF");
    EXPECT_EQ(ReadTextToken(input), "EOF");
}

TEST_F(ScalingTokens, ByteFFIsTheEnd) {
    TextInput text = Reading("V\xFF,A,");
    EXPECT_EQ(ReadTextToken(text), "EOF");
    TextInput number = Reading("12\xFF,3,");
    EXPECT_EQ(ReadIntToken(number), -99999);
}

TEST_F(ScalingTokens, TextLosesALineEndWhereverItStands) {
    TextInput input = Reading("\r\nkm\r\n/h\r\n,\r\n,");
    EXPECT_EQ(ReadTextToken(input), "km/h");
    EXPECT_EQ(ReadTextToken(input), "");
}

TEST_F(ScalingTokens, TextKeepsTheSecondOfTwoLineEnds) {
    TextInput input = Reading("\n\nA,");
    EXPECT_EQ(ReadTextToken(input), "\nA");
}

TEST_F(ScalingTokens, TextEndsAtAnEndAfterALineEnd) {
    TextInput input = Reading("A\n");
    EXPECT_EQ(ReadTextToken(input), "EOF");
}

TEST_F(ScalingTokens, TextIsCutTo39BytesAndReadToItsEnd) {
    TextInput input = Reading(std::string(100000, 'u') + ",V,");
    EXPECT_EQ(ReadTextToken(input), std::string(39, 'u'));
    EXPECT_EQ(ReadTextToken(input), "V");
    EXPECT_EQ(kMaxUnitLength, 39U);
}

TEST_F(ScalingTokens, NumbersAreDecimalAfterBlanksAndLineEnds) {
    TextInput input = Reading("5,-10,\r\n 250,+3,12 34,7.9,");
    for (const int number : {5, -10, 250, 3, 12, 7}) EXPECT_EQ(ReadIntToken(input), number);
}

TEST_F(ScalingTokens, TextThatIsNoNumberGivesZero) {
    TextInput input = Reading("abc,,-,\n,");
    for (int i = 0; i < 4; ++i) EXPECT_EQ(ReadIntToken(input), 0);
    EXPECT_EQ(ReadIntToken(input), -99999);
}

TEST_F(ScalingTokens, ANumberWithoutItsCommaIsTheEndMarker) {
    TextInput input = Reading("1,23");
    EXPECT_EQ(ReadIntToken(input), 1);
    EXPECT_EQ(ReadIntToken(input), -99999);
    EXPECT_EQ(ReadIntToken(input), -99999);
}

TEST_F(ScalingTokens, NumbersSaturate) {
    TextInput input = Reading("99999999999,-99999999999," + std::string(5000, ' ') + "6000," +
                              std::string(5000, '9') + ",1,");
    for (const int number : {2147483647, -2147483647 - 1, 6000, 2147483647, 1}) {
        EXPECT_EQ(ReadIntToken(input), number);
    }
}

TEST_F(ScalingTokens, HexNumbersReadTheSameWay) {
    TextInput input = Reading("ff,\r\nffc0c0,A0FF,xyz,ffffffff,12");
    for (const int number : {0xFF, 0xFFC0C0, 0xA0FF, 0, -1, -99999}) EXPECT_EQ(ReadHexToken(input), number);
}

TEST_F(ScalingTokens, AFileThatIsNotThereHasOnlyEnds) {
    TextInput input(m_folder / "none");
    EXPECT_EQ(ReadTextToken(input), "EOF");
    EXPECT_EQ(ReadIntToken(input), -99999);
    EXPECT_EQ(ReadHexToken(input), -99999);
}

}  // namespace
}  // namespace plotvane
