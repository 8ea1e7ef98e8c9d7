#pragma once

#include <span>
#include <string>

#include "app/TipTexts.h"

namespace plotvane {

// The controls of the main dialog whose own text does not say, or does not say well, what they are for:
// buttons with pictures, and check boxes without a text.
std::span<const int> NamelessControls();

// What a screen reader calls such a control, in Windows-1252: its tip without the key, and for a check box
// its place, "Draw this value, B2".
std::string NameOfControl(int control, const TipTexts& tips);

}  // namespace plotvane
