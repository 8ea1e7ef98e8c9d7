#pragma once

#include <string>
#include <string_view>

namespace plotvane {

// Appends a text as UTF-16, one unit for each byte. For use with texts that Windows-1252 cannot hold, such as
// the names of the user's files.
void AppendUtf16(std::u16string& text, std::string_view windows1252);

// The same as UTF-8, for files that other programs read.
void AppendUtf8(std::string& text, std::string_view windows1252);

}  // namespace plotvane
