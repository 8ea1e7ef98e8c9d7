#pragma once

#include <string>
#include <string_view>

namespace plotvane {

// The title-bar hint of the first seconds: an arrow that shrinks towards the icon of the system menu.
//   <===Click icon for preferences
// `length` is the number of "=", `text` follows them.
std::string TitleHint(int length, std::string_view text);

}  // namespace plotvane
