#pragma once

#include <cstddef>
#include <functional>

namespace plotvane::test {

// Both run `work` in a forked process and kill it on its way, as an end in the task manager or a power cut
// would. True if it was killed; false if it came to its end first. Whatever `work` leaves is on the disk when
// they return.

// Where it enters or leaves a system call for the `step`th time, counted from 1.
bool KilledAtStep(int step, const std::function<void()>& work);

// Where it writes beyond `bytes` bytes of a file, with these already written.
bool KilledAtByte(std::size_t bytes, const std::function<void()>& work);

}  // namespace plotvane::test
