#pragma once

#include <string>

#include "model/FieldSlot.h"

namespace plotvane::fuzz {

// What any record may leave in the slots: a group of three characters, a field digit, a finite value, a
// unit of at most 100 characters up to a comma.
void RequireSaneSlots(const SlotTable& slots);

bool AreEqual(const SlotTable& a, const SlotTable& b);

// The record without identifier that says what the slots hold; empty if none can: a negative group, a value
// of more than 100 digits, or more than 512 characters in all.
std::string RecordOf(const SlotTable& slots);

}  // namespace plotvane::fuzz
