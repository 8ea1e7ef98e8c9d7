#pragma once

#include <functional>
#include <span>
#include <string>

namespace plotvane {

// The controls that the template of the Preferences dialog makes without a text or a label of their own.
std::span<const int> NamelessPrefsControls();

// What screen readers call such a control, or one of the swatches, in Windows-1252: "Red, Background". Empty
// for other controls. `textOf` gives the text that a control shows, `load` one of the string table, each by
// its id.
std::string NameOfPrefsControl(int control, const std::function<std::string(int)>& textOf,
                               std::string (*load)(unsigned));

}  // namespace plotvane
