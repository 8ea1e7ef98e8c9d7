#pragma once

#include <windows.h>

namespace plotvane {

// Asks the windows that belong to a window and that people see to close, the topmost first: its meters, and
// the dialogs and messages that are open over it. A dialog or a message has a loop of its own on the stack;
// left open, it would keep the program alive.
void CloseOwnedWindows(HWND owner);

}  // namespace plotvane
