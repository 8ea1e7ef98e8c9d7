#pragma once

#include <string>
#include <string_view>

namespace plotvane {

// Appends the characters of a text of this program as UTF-16, one unit a byte, for where it stands beside
// texts that Windows-1252 does not have, such as the names of the user's files.
void AppendUtf16(std::u16string& text, std::string_view windows1252);

}  // namespace plotvane
