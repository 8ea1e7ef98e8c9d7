#pragma once

#include <chrono>
#include <filesystem>

#include "tests/kit/Report.h"

namespace plotvane::kit {

// Runs a GoogleTest program and waits for its end. In `folder`, which must exist, it leaves NAME.xml, its
// cases, and NAME.log, all that it has printed. When its time is over the program is ended. Everything that
// it has started ends with it.
ProgramResult RunTestProgram(const std::filesystem::path& program, const std::filesystem::path& folder,
                             std::chrono::seconds limit);

}  // namespace plotvane::kit
