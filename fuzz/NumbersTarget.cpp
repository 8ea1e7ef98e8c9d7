#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>
#include <utility>

#include "base/Numbers.h"
#include "fuzz/Inputs.h"
#include "fuzz/Targets.h"
#include "tests/support/Promise.h"

namespace plotvane::fuzz {

using test::Require;

namespace {

constexpr std::string_view kWhiteSpace = " \t\n\v\f\r";

// The text of a number, split into sign and digits.
struct Spelling {
    bool negative = false;
    std::string_view digits;
};

Spelling SpellingOf(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(kWhiteSpace), text.size()));
    const bool hasSign = text.starts_with('-') || text.starts_with('+');
    return {text.starts_with('-'), hasSign ? text.substr(1) : text};
}

int DigitOf(char c, int base) {
    constexpr std::string_view kDigits = "0123456789abcdef0123456789ABCDEF";
    const std::size_t found = kDigits.find(c);
    const int digit = found == std::string_view::npos ? base : static_cast<int>(found % 16);
    return std::min(digit, base);
}

// The digits at the start as a number of at most 32 bits, and how many of them there are.
std::pair<std::uint32_t, std::size_t> NumberOf(std::string_view digits, int base) {
    constexpr std::uint64_t kMost = std::numeric_limits<std::uint32_t>::max();
    std::uint64_t number = 0;
    std::size_t count = 0;
    for (; count < digits.size(); ++count) {
        const int digit = DigitOf(digits[count], base);
        if (digit == base) break;
        number = std::min(number * static_cast<unsigned>(base) + static_cast<unsigned>(digit), kMost);
    }
    return {static_cast<std::uint32_t>(number), count};
}

void RequireDecimal(std::string_view text) {
    const auto [negative, digits] = SpellingOf(text);
    const auto [magnitude, count] = NumberOf(digits, 10);
    const auto number = TryParseDecimal(text);
    Require(number.has_value() == (count > 0), "a decimal number begins with a digit");
    Require(ParseDecimal(text) == number.value_or(0), "no number is 0");
    const std::int64_t wanted = negative ? -std::int64_t{magnitude} : std::int64_t{magnitude};
    using Limits = std::numeric_limits<int>;
    if (number)
        Require(*number == std::clamp<std::int64_t>(wanted, Limits::min(), Limits::max()),
                "a decimal number is its digits, or the nearer end of int");
}

void RequireHex(std::string_view text) {
    auto [negative, digits] = SpellingOf(text);
    const bool hasPrefix = digits.starts_with("0x") || digits.starts_with("0X");
    if (hasPrefix && digits.size() > 2 && DigitOf(digits[2], 16) < 16) digits.remove_prefix(2);
    const auto [magnitude, count] = NumberOf(digits, 16);
    const auto number = ParseHex(text);
    Require(number.has_value() == (count > 0), "a hexadecimal number begins with a digit");
    constexpr std::uint32_t kMost = std::numeric_limits<std::uint32_t>::max();
    if (number)
        Require(*number == (negative && magnitude != kMost ? 0U - magnitude : magnitude),
                "a hexadecimal number is its digits, or all ones");
}

// Compares with the C library's reader where the two must agree: on digits, a point and an exponent.
void RequireDouble(std::string_view text) {
    const double number = ParseDouble(text);
    Require(std::isfinite(number), "a number is finite");
    const auto digits = SpellingOf(text).digits;
    const bool isNumber = !digits.empty() && (DigitOf(digits.front(), 10) < 10 || digits.front() == '.');
    if (!isNumber) {
        Require(number == 0.0, "no number is 0");
        return;
    }
    if (digits.starts_with("0x") || digits.starts_with("0X")) return;
    const double wanted = std::strtod(std::string(text.substr(0, text.find('\0'))).c_str(), nullptr);
    Require(number == (std::isinf(wanted) ? 0.0 : wanted), "a number is what its text says");
}

std::string Printed(const char* format, auto... arguments) {
    std::array<char, 512> text;
    const int length = std::snprintf(text.data(), text.size(), format, arguments...);
    return {text.data(), static_cast<std::size_t>(length)};
}

void RequireWritten(double number, int integer) {
    std::string text = "=";
    AppendNumber(text, number);
    Require(text == "=" + Printed("%g", number), "a number is written as \"%g\" would write it");
    text = "=";
    const int decimals = integer % (kMaxDecimals + 1);
    AppendFixed(text, number, decimals);
    Require(text == "=" + Printed("%.*f", std::max(decimals, 0), number),
            "the number of decimals is the one asked for");
    text = "=";
    AppendDecimal(text, integer);
    Require(text == "=" + Printed("%d", integer) && ParseDecimal(text.substr(1)) == integer,
            "a written integer reads back the same");
    text = "=";
    const auto bits = static_cast<std::uint32_t>(integer);
    AppendHex(text, bits);
    Require(text == "=" + Printed("%x", bits) && ParseHex(text.substr(1)) == bits,
            "written bits read back the same");
}

}  // namespace

// The input is read as the text of a number; its first bytes are also taken as a number to write.
int FuzzNumbers(Bytes input) {
    const std::string_view text = AsText(input);
    RequireDecimal(text);
    RequireHex(text);
    RequireDouble(text);

    if (input.empty()) return 0;
    double number = 0.0;
    int integer = 0;
    std::memcpy(&number, input.data(), std::min(input.size(), sizeof number));
    std::memcpy(&integer, input.data(), std::min(input.size(), sizeof integer));
    if (std::isfinite(number)) RequireWritten(number, integer);
    return 0;
}

}  // namespace plotvane::fuzz
