#pragma once

#include <filesystem>

namespace plotvane {

// Writes a working folder that the program can be started in: logs of every form in LOGS, labels of their
// module in labels, the ranges in Scaling. The same bytes each time and everywhere. False if a file cannot be
// written.
bool WriteSamples(const std::filesystem::path& folder);

}  // namespace plotvane
