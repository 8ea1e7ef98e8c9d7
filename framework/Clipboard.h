#pragma once

#include <windows.h>

#include <string_view>

#include "framework/Gdi.h"

// Puts something on the clipboard for other programs, in place of what is there. False if another program has
// the clipboard open, or without memory.
bool CopyTextToClipboard(HWND window, std::string_view windows1252);
bool CopyPictureToClipboard(HWND window, const Picture& picture);
