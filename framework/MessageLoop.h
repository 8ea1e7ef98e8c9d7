#pragma once

#include <windows.h>

// Deals with a message that a loop has taken from the thread's queue. The window that it is for may take it,
// then each window above that one: parents, and owners of those (CWnd::PreTranslateMessage). If none does, a
// dialog treats its keys as a dialog does: Tab, arrows, Enter, Esc and the underlined letters. What is left
// is dispatched.
//
// Every loop of the program uses this, so that a key does the same in all of them. Loops of Windows' own, of
// message boxes, menus and file dialogs, do not ask.
void HandleQueued(MSG& message);
