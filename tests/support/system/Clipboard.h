#pragma once

#include <string>

namespace plotvane::test {

// The text on the clipboard; empty if there is none, or if another program has the clipboard open.
std::wstring ClipboardText();

}  // namespace plotvane::test
