#pragma once

#include <filesystem>

namespace plotvane {

enum class LogCheck {
    HostLog,       // a log of the host's
    Unreadable,    // the file cannot be opened, its first line not be read, or it is a device
    SomethingElse  // its first line is not that of a log
};

// Looks at the first line of a file that is to be replayed: its fifth comma-separated field must be a time of
// day "hh:mm:ss", and its fourth comma must lie within the first 99 characters.
LogCheck CheckLog(const std::filesystem::path& path);

}  // namespace plotvane
