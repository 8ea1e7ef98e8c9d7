#pragma once

#include <string>

#include "history/Recording.h"

namespace plotvane {

// The name from the labels, else group and field as in "003-1".
std::string NameOf(const RecordedTrace& trace);

// A value as the box of its slot shows it, without the unit.
std::string ValueText(const RecordedTrace& trace, double value);

// The same with the unit, where there is one.
std::string ValueAndUnitText(const RecordedTrace& trace, double value);

}  // namespace plotvane
