#pragma once

#include <windows.h>

#include <string>

// The answer of a window to a WM_GETOBJECT that asks for its client area, with these flags (the message's
// first parameter): the system's own object for such a window, but with this name. 0 if the system has no
// such objects; the window then does what it would have done.
LRESULT AnswerWithName(HWND window, WPARAM flags, const std::wstring& name);
