#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace plotvane {

// Numbers as text, the same on every system and in every locale. The C library's own functions use the
// locale's decimal comma, and each treats an overflow in its own way.
//
// The readers skip white space at the start (including line ends), convert the longest number that follows,
// and ignore the rest.

// A decimal integer with an optional sign. A number beyond the range of int becomes the nearest int. Nothing
// if the text does not begin with a number.
std::optional<int> TryParseDecimal(std::string_view text);

// The same; 0 if the text does not begin with a number.
int ParseDecimal(std::string_view text);

// A hexadecimal integer in upper or lower case, with or without "0x". A minus sign gives the two's complement
// ("-1" is 0xFFFFFFFF). A number of more than 32 bits becomes 0xFFFFFFFF. Nothing if the text does not begin
// with a number.
std::optional<std::uint32_t> ParseHex(std::string_view text);

// A decimal floating-point number, with or without an exponent. 0 if the text does not begin with one or a
// double cannot hold it, so the result is always finite.
double ParseDouble(std::string_view text);

// The writers append the number to `out`. They allocate only if `out` has to grow.

void AppendDecimal(std::string& out, int value);        // "%d"
void AppendHex(std::string& out, std::uint32_t value);  // "%x": lower case, no prefix
void AppendNumber(std::string& out, double value);      // "%g": six significant digits, no trailing zeros

// "%.*f"; `decimals` is clamped to 0..kMaxDecimals.
void AppendFixed(std::string& out, double value, int decimals);

constexpr int kMaxDecimals = 16;

}  // namespace plotvane
