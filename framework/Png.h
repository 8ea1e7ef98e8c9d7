#pragma once

#include <string>

#include "framework/Gdi.h"

// The picture as the bytes of a PNG file, eight bits a colour, without transparency. Empty if Windows cannot
// make one. Windows' own encoder is loaded for this call and let go after it.
std::string EncodePng(const Picture& picture);
