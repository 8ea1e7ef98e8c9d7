#pragma once

#include <cstddef>
#include <string>

#include "files/TextInput.h"

namespace plotvane {

// The next line of a text file, without its line end; what it has beyond `longest` characters is dropped.
// False at the end of the file.
bool ReadTextLine(TextInput& input, std::string& line, std::size_t longest);

}  // namespace plotvane
