#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace plotvane::fuzz {

// How a target takes its input apart, and what it knows of text files.

// Stands between the parts of an input that is more than one text. No file of the program's has it.
constexpr char kPartSeparator = '\x1F';

std::string_view AsText(std::span<const std::uint8_t> bytes);

// Takes the next part, and the separator behind it, off the front; empty once nothing is left.
std::string_view TakePart(std::string_view& rest);

// What a text file reads as: CR LF is one '\n', and 0x1A or 0xFF ends it. Written down here a second time,
// apart from the reader under test.
std::string TextOfFile(std::string_view bytes);

// The file as the other system would have it: '\n' as CR LF. Every reader must see the same text in it. Only
// for a file without any CR.
std::string WithCrLf(std::string_view bytes);

}  // namespace plotvane::fuzz
