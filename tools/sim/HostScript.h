#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "tools/sim/DrivePlayer.h"
#include "tools/sim/HostLink.h"

namespace plotvane {

// One thing that a script makes the host do.
struct ScriptStep {
    enum class Kind {
        Send,   // writes the bytes in one piece
        Wait,   // lets the time pass
        Drain,  // waits until the program has read everything, at most for the time
        Close,  // closes the pipe
        Die     // ends the host
    };
    Kind kind = Kind::Send;
    std::string bytes;
    std::chrono::milliseconds time{0};
};

struct HostScript {
    std::vector<ScriptStep> steps;
    std::string error;  // what is wrong with the file, and in which line; empty if nothing is
};

// Reads a script: one command per line, as --help lists them. The text is Windows-1252. Bytes 0xFF and 0x1A
// must be written as \xFF and \x1A, since either ends the file.
HostScript LoadHostScript(const std::filesystem::path& path);

// Runs the script. The result is Stopped if the pipe is still open at its end.
PlayResult RunScript(HostLink& link, const std::vector<ScriptStep>& steps);

}  // namespace plotvane
