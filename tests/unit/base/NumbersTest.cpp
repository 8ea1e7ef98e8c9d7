#include "base/Numbers.h"

#include <gtest/gtest.h>

#include <limits>

namespace plotvane {
namespace {

constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kHighest = std::numeric_limits<int>::max();

TEST(ParseDecimal, ReadsTheNumberThatTheTextBeginsWith) {
    constexpr struct {
        std::string_view text;
        int value;
    } kTexts[] = {
        {"0", 0},
        {"6000", 6000},
        {"-10", -10},
        {"+7", 7},
        {" \t\r\n 12", 12},
        {"12abc", 12},
        {"12.9", 12},
        {"-3,4", -3},
        {"007", 7},
        {"1 2", 1},
        {"12\n", 12},
        {"2147483647", kHighest},
        {"-2147483648", kLowest},
    };
    for (const auto& [text, value] : kTexts) {
        EXPECT_EQ(TryParseDecimal(text), value) << text;
        EXPECT_EQ(ParseDecimal(text), value) << text;
    }
}

TEST(ParseDecimal, SaturatesAtTheEndsOfInt) {
    EXPECT_EQ(ParseDecimal("2147483648"), kHighest);
    EXPECT_EQ(ParseDecimal("4294967296"), kHighest);
    EXPECT_EQ(ParseDecimal("99999999999"), kHighest);
    EXPECT_EQ(ParseDecimal("-2147483649"), kLowest);
    EXPECT_EQ(ParseDecimal("-99999999999"), kLowest);
    EXPECT_EQ(ParseDecimal(std::string(1000, '9')), kHighest);
}

TEST(ParseDecimal, TellsTextWithoutANumberFromZero) {
    for (const std::string_view text : {"", " ", "-", "+", "abc", "--1", "+-1", "- 1", ",5"}) {
        EXPECT_EQ(TryParseDecimal(text), std::nullopt) << text;
        EXPECT_EQ(ParseDecimal(text), 0) << text;
    }
}

TEST(ParseHex, ReadsBothLetterCasesAndAPrefix) {
    constexpr struct {
        std::string_view text;
        std::uint32_t value;
    } kTexts[] = {
        {"0", 0},           {"27a", 634},
        {"1B1", 433},       {"ffc0c0", 0xFFC0C0},
        {"0xff", 255},      {"0X1f", 31},
        {" \n ff", 255},    {"ffg", 255},
        {"0x", 0},          {"0xg", 0},
        {"-1", 0xFFFFFFFF}, {"-ff", 0xFFFFFF01},
        {"+b", 11},         {"80000000", 0x80000000},
        {"00000000001", 1}, {"0xf", 15},
        {"1x2", 1},         {"0f2", 0xF2},
    };
    for (const auto& [text, value] : kTexts) EXPECT_EQ(ParseHex(text), value) << text;
}

TEST(ParseHex, SaturatesAt32Bits) {
    EXPECT_EQ(ParseHex("ffffffff"), 0xFFFFFFFF);
    EXPECT_EQ(ParseHex("100000000"), 0xFFFFFFFF);
    EXPECT_EQ(ParseHex("fffffffffff"), 0xFFFFFFFF);
    EXPECT_EQ(ParseHex("-100000000"), 0xFFFFFFFF);
}

TEST(ParseHex, FindsNoNumberInOtherText) {
    for (const std::string_view text : {"", " ", "-", "x1", "g", "--1", "=1"}) {
        EXPECT_EQ(ParseHex(text), std::nullopt) << text;
    }
}

TEST(ParseDouble, ReadsTheNumberThatTheTextBeginsWith) {
    constexpr struct {
        std::string_view text;
        double value;
    } kTexts[] = {
        {"780", 780.0}, {"90.0", 90.0}, {"-3", -3.0},   {"+2.5", 2.5},  {".5", 0.5},     {"-.5", -0.5},
        {"5.", 5.0},    {"1.2.3", 1.2}, {"1-2", 1.0},   {" 4.2", 4.2},  {"1e3", 1000.0}, {"1e", 1.0},
        {"12,5", 12.0}, {"7 l/h", 7.0}, {"\n\t8", 8.0}, {"0.25", 0.25},
    };
    for (const auto& [text, value] : kTexts) EXPECT_EQ(ParseDouble(text), value) << text;
}

TEST(ParseDouble, AnswersZeroForWhatIsNoFiniteNumber) {
    for (const std::string_view text : {"", "-", "+", ".", "-.", "--1", "+-1", "n/a", "inf", "-inf", "nan",
                                        "e5", "1e999", "-1e999", "1e-999"}) {
        EXPECT_EQ(ParseDouble(text), 0.0) << text;
    }
    EXPECT_EQ(ParseDouble(std::string(400, '9')), 0.0);
}

TEST(ParseDouble, ReadsTextThatIsNotTerminated) {
    const std::string_view text = "123456";
    EXPECT_EQ(ParseDouble(text.substr(0, 2)), 12.0);
    EXPECT_EQ(ParseDecimal(text.substr(0, 2)), 12);
    EXPECT_EQ(ParseHex(text.substr(0, 2)), 0x12U);
}

template <typename Append, typename... Arguments>
std::string Written(Append append, Arguments... arguments) {
    std::string out = "<";
    append(out, arguments...);
    return out.substr(1);
}

TEST(AppendDecimal, WritesAsPercentD) {
    EXPECT_EQ(Written(AppendDecimal, 0), "0");
    EXPECT_EQ(Written(AppendDecimal, -10), "-10");
    EXPECT_EQ(Written(AppendDecimal, kHighest), "2147483647");
    EXPECT_EQ(Written(AppendDecimal, kLowest), "-2147483648");
}

TEST(AppendHex, WritesAsPercentX) {
    EXPECT_EQ(Written(AppendHex, 0U), "0");
    EXPECT_EQ(Written(AppendHex, 634U), "27a");
    EXPECT_EQ(Written(AppendHex, 0xFFFFFFFFU), "ffffffff");
}

TEST(AppendNumber, WritesAsPercentG) {
    constexpr struct {
        double value;
        std::string_view text;
    } kNumbers[] = {
        {0.0, "0"},
        {780.0, "780"},
        {4.2, "4.2"},
        {-10.0, "-10"},
        {0.5, "0.5"},
        {28.0017, "28.0017"},
        {1234567.0, "1.23457e+06"},
        {999999.0, "999999"},
        {0.0001, "0.0001"},
        {0.00001, "1e-05"},
        {1e100, "1e+100"},
        {-1.234567e-300, "-1.23457e-300"},
        {-0.0, "-0"},
        {100000.0, "100000"},
        {999999.5, "1e+06"},
    };
    for (const auto& [value, text] : kNumbers) EXPECT_EQ(Written(AppendNumber, value), text);
}

TEST(AppendFixed, WritesTheGivenNumberOfDecimals) {
    EXPECT_EQ(Written(AppendFixed, 3.14159, 2), "3.14");
    EXPECT_EQ(Written(AppendFixed, 2.5, 0), "2");  // the exact half goes to the even digit
    EXPECT_EQ(Written(AppendFixed, 3.5, 0), "4");
    EXPECT_EQ(Written(AppendFixed, -0.04, 1), "-0.0");
    EXPECT_EQ(Written(AppendFixed, 8.4, 1), "8.4");
    EXPECT_EQ(Written(AppendFixed, 0.0, 2), "0.00");
}

TEST(AppendFixed, TakesEveryDoubleAndBoundsTheDecimals) {
    const double highest = std::numeric_limits<double>::max();
    EXPECT_EQ(Written(AppendFixed, -highest, 100).size(), 1U + 309U + 1U + kMaxDecimals);
    EXPECT_EQ(Written(AppendFixed, 1.5, -3), "2");
    EXPECT_EQ(Written(AppendFixed, std::numeric_limits<double>::infinity(), 1), "inf");
    EXPECT_EQ(Written(AppendNumber, std::numeric_limits<double>::infinity()), "inf");
}

TEST(AppendNumber, DoesNotAllocateWhileTheTextHasRoom) {
    std::string out;
    out.reserve(64);
    const char* const storage = out.data();
    for (int i = 0; i < 3; ++i) {
        out.clear();
        AppendNumber(out, 1.0 / 3.0 * i);
        AppendFixed(out, 1.0 / 3.0 * i, 2);
        EXPECT_EQ(out.data(), storage);
    }
    EXPECT_EQ(out, "0.6666670.67");
}

}  // namespace
}  // namespace plotvane
