#pragma once

#include <windows.h>

#include <filesystem>
#include <optional>

namespace plotvane {

// Shows the system's dialog for opening a log. It starts in the folder "LOGS" under the current one, which
// stays the current one wherever the user looks. Nothing if the user cancels.
std::optional<std::filesystem::path> AskForLogFile(HWND owner);

}  // namespace plotvane
