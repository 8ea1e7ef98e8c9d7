#pragma once

#include <filesystem>

namespace plotvane {

// Writes a working folder for the program: logs of every form in LOGS, labels of their module in labels, its
// ranges in Scaling. Writes the same bytes each time and on every system. False if a file cannot be written.
bool WriteSamples(const std::filesystem::path& folder);

}  // namespace plotvane
