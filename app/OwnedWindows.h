#pragma once

#include <windows.h>

namespace plotvane {

// Asks the windows that belong to a window to close, the topmost first: meters, and dialogs and messages that
// are open over it. Each of these may have a loop of its own on the stack, and the program would go on in it
// for ever.
void CloseOwnedWindows(HWND owner);

}  // namespace plotvane
