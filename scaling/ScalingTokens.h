#pragma once

#include <string>

#include "base/TextInput.h"

namespace plotvane {

// The tokens of the scaling files and of the old preferences file: text up to a comma, which is taken too.
// Tokens of any length are read in constant memory. A text that ends without a comma has no token there.

// What the number readers answer when the text has ended. A number like any other to the files' writers, but
// none that a scale would have.
constexpr int kEndMarker = -99999;

// What ReadTextToken answers when the text has ended; a file may also end with a record of this name.
constexpr const char* kEndText = "EOF";

// The token as text, cut to kMaxUnitLength bytes. A line end in it is dropped, so that a record may be split
// across lines; of two in a row the second belongs to the text.
std::string ReadTextToken(TextInput& input);

// The token as a decimal number: white space and line ends before it are skipped, text that is no number
// gives 0, and what is too large for int becomes the nearest int.
int ReadIntToken(TextInput& input);

// The same for a hexadecimal number of 32 bits.
int ReadHexToken(TextInput& input);

}  // namespace plotvane
