#pragma once

#include <cstddef>
#include <string>

#include "base/TextInput.h"

namespace plotvane {

// Reads the next line of a text file, without its line end; drops everything after the first `longest`
// characters. False at the end of the file.
bool ReadTextLine(TextInput& input, std::string& line, std::size_t longest);

}  // namespace plotvane
