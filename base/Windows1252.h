#pragma once

#include <string>
#include <string_view>

namespace plotvane {

// Appends one of this program's texts as UTF-16, one unit per byte; for use beside texts that Windows-1252
// cannot hold, such as the names of the user's files.
void AppendUtf16(std::u16string& text, std::string_view windows1252);

}  // namespace plotvane
