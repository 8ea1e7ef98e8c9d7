#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "tools/DrivePlayer.h"
#include "tools/HostLink.h"

namespace plotvane {

// One thing that a script lets the host do.
struct ScriptStep {
    enum class Kind {
        Send,   // the bytes, in one piece
        Wait,   // lets the time pass
        Drain,  // waits until the program has read everything, but no longer than the time
        Close,  // closes the pipe
        Die     // the host is gone
    };
    Kind kind = Kind::Send;
    std::string bytes;
    std::chrono::milliseconds time{0};
};

struct HostScript {
    std::vector<ScriptStep> steps;
    std::string error;  // what is wrong with the file, with the line's number; empty if nothing is
};

// Reads a script: one command a line, as --help lists them. Its text is Windows-1252; a byte 0xFF or 0x1A in
// it can only be written as \xFF or \x1A, since the file would end there.
HostScript LoadHostScript(const std::filesystem::path& path);

// Does what the script says. The result is Stopped if the pipe is open at its end.
PlayResult RunScript(HostLink& link, const std::vector<ScriptStep>& steps);

}  // namespace plotvane
