#pragma once

#include <cstddef>
#include <functional>

namespace plotvane::test {

// Both run `work` in a forked process and kill it on the way, as the task manager or a power cut would. They
// return true if it was killed, false if it finished first. What `work` has left is then on the disk.

// Kills it when it enters or leaves a system call for the `step`th time, counted from 1.
bool KilledAtStep(int step, const std::function<void()>& work);

// Kills it when it writes more than `bytes` bytes of a file; these are already written.
bool KilledAtByte(std::size_t bytes, const std::function<void()>& work);

}  // namespace plotvane::test
