#pragma once

#include <filesystem>

namespace plotvane {

enum class LogCheck {
    HostLog,       // a log that the host wrote
    Unreadable,    // the file cannot be opened or its first line not read, or it is a device
    SomethingElse  // its first line is not a log's
};

// Examines the first line of a file that is to be replayed. Its fifth comma-separated field must be a time of
// day "hh:mm:ss", and its fourth comma must be within the first 99 characters.
LogCheck CheckLog(const std::filesystem::path& path);

}  // namespace plotvane
