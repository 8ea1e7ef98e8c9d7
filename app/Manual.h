#pragma once

#include <string_view>

namespace plotvane {

// Shows a page of the manual, manual.html beside the program, in the browser of the user. A page is called as
// its file in docs/manual, without extension. Where the browser cannot be asked for a page, the manual opens
// at its beginning. False if there is no manual, or nothing opens it.
bool ShowManual(std::string_view page);

}  // namespace plotvane
