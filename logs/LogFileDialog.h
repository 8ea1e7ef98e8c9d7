#pragma once

#include <windows.h>

#include <filesystem>
#include <optional>

namespace plotvane {

// The system's dialog for opening a log, in the "LOGS" folder under the current one, which stays current
// whatever folder the user looks into. Nothing if the user cancels.
std::optional<std::filesystem::path> AskForLogFile(HWND owner);

}  // namespace plotvane
