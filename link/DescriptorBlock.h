#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace plotvane {

// A C run-time hands its descriptors to a program that it starts in a block of the start-up information: a
// count of four bytes (little-endian), a byte of flags for each descriptor, then a handle for each. Handles
// are as wide as the host's pointers: four bytes from a 32-bit host, eight from a 64-bit one. Only the size
// of the block tells which. The run-time of this program would take any block for one of eight bytes.
//
// Returns the handle of a descriptor. A handle of four bytes is sign-extended, as Windows does it. Returns
// nothing if the block has neither size, does not contain the descriptor, or says that it is not open.
std::optional<std::int64_t> InheritedHandleOf(std::span<const std::byte> block, int descriptor);

}  // namespace plotvane
