#pragma once

#include <cstddef>
#include <string_view>

#include "model/FieldSlot.h"
#include "model/RunState.h"

namespace plotvane {

// Parses the items of an exchange record into the slots, starting after the identifier's comma.
//
//   normal form: three groups of four fields                    -> slots 0..11
//   ten-channel: one group of ten ("GZER"), two groups of four  -> the ten channels, slots 4..11
//
//   field = "G" tag "," "F" digit "," value "," [" "] unit ","     tag: three characters
//   empty = "G000,,,,"
//
// Notes in the state whether the record has the ten-channel form, and whether the record before had it.
// Returns false if the record is malformed; the slots read until then keep what they got. Never reads beyond
// the text. Allocates nothing once the slots' unit texts have grown.
bool ParseRecord(std::string_view text, std::size_t position, SlotTable& slots, RunState& state);

}  // namespace plotvane
