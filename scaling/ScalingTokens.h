#pragma once

#include <string>

#include "base/TextInput.h"

namespace plotvane {

// The tokens of the scaling files and of the old preferences file: text up to a comma, which is taken too.
// Tokens of any length are read in constant memory. Text without a comma after it is not a token.

// What the number readers return when the text has ended. The files' writers treat it like any other number,
// but no scale would have it.
constexpr int kEndMarker = -99999;

// What ReadTextToken returns when the text has ended. A file may also end with a record of this name.
constexpr const char* kEndText = "EOF";

// Returns the token as text, cut to kMaxUnitLength bytes. A line end in it is dropped, so that a record may
// be split across lines. Of two line ends in a row, the second is part of the text.
std::string ReadTextToken(TextInput& input);

// Returns the token as a decimal number. White space and line ends before it are skipped. Text that is no
// number gives 0; a number too large for int gives the nearest int.
int ReadIntToken(TextInput& input);

// The same for a hexadecimal number of 32 bits.
int ReadHexToken(TextInput& input);

}  // namespace plotvane
