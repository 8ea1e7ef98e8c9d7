#include "base/Numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace plotvane {
namespace {

constexpr std::string_view kWhiteSpace = " \t\n\v\f\r";

struct SignedText {
    bool negative = false;
    std::string_view digits;  // everything after the sign
};

SignedText SplitSign(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(kWhiteSpace), text.size()));
    if (text.empty() || (text.front() != '-' && text.front() != '+')) return {false, text};
    return {text.front() == '-', text.substr(1)};
}

// Without a sign. A number that is too large becomes the maximum. Nothing if there is no digit.
std::optional<std::uint32_t> ParseDigits(std::string_view digits, int base) {
    std::uint32_t value = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value, base);
    if (result.ec == std::errc::invalid_argument) return std::nullopt;
    if (result.ec == std::errc::result_out_of_range) return std::numeric_limits<std::uint32_t>::max();
    return value;
}

std::string_view WithoutHexPrefix(std::string_view digits) {
    if (digits.size() < 3 || digits[0] != '0' || (digits[1] != 'x' && digits[1] != 'X')) return digits;
    return ParseDigits(digits.substr(2), 16) ? digits.substr(2) : digits;
}

// Room for the longest text: a sign, the digits and the point of the largest double, and the decimals.
constexpr std::size_t kLongest = 2 + std::numeric_limits<double>::max_exponent10 + 1 + kMaxDecimals;

template <typename... Arguments>
void AppendChars(std::string& out, Arguments... arguments) {
    std::array<char, kLongest> buffer;
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), arguments...);
    out.append(buffer.data(), result.ptr);
}

}  // namespace

std::optional<int> TryParseDecimal(std::string_view text) {
    const auto [negative, digits] = SplitSign(text);
    const auto magnitude = ParseDigits(digits, 10);
    if (!magnitude) return std::nullopt;
    using Limits = std::numeric_limits<int>;
    const std::int64_t value = negative ? -std::int64_t{*magnitude} : std::int64_t{*magnitude};
    return static_cast<int>(std::clamp<std::int64_t>(value, Limits::min(), Limits::max()));
}

int ParseDecimal(std::string_view text) {
    return TryParseDecimal(text).value_or(0);
}

std::optional<std::uint32_t> ParseHex(std::string_view text) {
    const auto [negative, digits] = SplitSign(text);
    const std::string_view bare = WithoutHexPrefix(digits);
    const auto magnitude = ParseDigits(bare, 16);
    if (!magnitude || !negative) return magnitude;
    const bool overflown = *magnitude == std::numeric_limits<std::uint32_t>::max();
    return overflown ? *magnitude : 0U - *magnitude;
}

double ParseDouble(std::string_view text) {
    const auto [negative, digits] = SplitSign(text);
    // from_chars would accept a second sign here, and "inf" and "nan".
    if (digits.empty() || (digits.front() != '.' && (digits.front() < '0' || digits.front() > '9')))
        return 0.0;
    double value = 0.0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (result.ec != std::errc{} || !std::isfinite(value)) return 0.0;
    return negative ? -value : value;
}

void AppendDecimal(std::string& out, int value) {
    AppendChars(out, value);
}

void AppendHex(std::string& out, std::uint32_t value) {
    AppendChars(out, value, 16);
}

void AppendNumber(std::string& out, double value) {
    constexpr int kSignificantDigits = 6;
    AppendChars(out, value, std::chars_format::general, kSignificantDigits);
}

void AppendFixed(std::string& out, double value, int decimals) {
    AppendChars(out, value, std::chars_format::fixed, std::clamp(decimals, 0, kMaxDecimals));
}

}  // namespace plotvane
