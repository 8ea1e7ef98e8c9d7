#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace plotvane::fuzz {

// How a target splits its input, and the rules for text files.

// Separates the parts of an input that holds more than one text. No file of the program contains it.
constexpr char kPartSeparator = '\x1F';

std::string_view AsText(std::span<const std::uint8_t> bytes);

// Removes the next part and the separator after it from `rest` and returns the part; empty when nothing is
// left.
std::string_view TakePart(std::string_view& rest);

// The text of a file with these bytes: CR LF is one '\n', and 0x1A or 0xFF ends it. This is a second version
// of the rule, independent of the reader under test.
std::string TextOfFile(std::string_view bytes);

// The file with CR LF for each '\n'. Every reader must see the same text in it. The file must not hold a CR.
std::string WithCrLf(std::string_view bytes);

}  // namespace plotvane::fuzz
