#pragma once

#include <string>

#include "model/FieldSlot.h"

namespace plotvane::fuzz {

// Throws unless the slots hold what a record can leave there: a group of three characters, a field digit, a
// finite value, and a unit of at most 100 characters without a comma.
void RequireSaneSlots(const SlotTable& slots);

bool AreEqual(const SlotTable& a, const SlotTable& b);

// A record without an identifier that puts these values into slots. Empty if no record can: for a negative
// group, a value of more than 100 digits, or more than 512 characters in all.
std::string RecordOf(const SlotTable& slots);

}  // namespace plotvane::fuzz
