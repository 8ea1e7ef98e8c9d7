#pragma once

#include <windows.h>

#include <string_view>

#include "framework/Gdi.h"

// Puts something on the clipboard for other programs, in place of what is there. If another program has the
// clipboard open, this waits for it, but no longer than a tenth of a second. False if the clipboard is still
// not free then, or without memory.
bool CopyTextToClipboard(HWND window, std::string_view windows1252);
bool CopyPictureToClipboard(HWND window, const Picture& picture);
