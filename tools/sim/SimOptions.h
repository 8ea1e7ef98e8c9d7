#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "tools/sim/DrivePlayer.h"

namespace plotvane {

// What the stand-in host was asked to do.
struct SimOptions {
    std::filesystem::path program;  // empty: plotvane.exe in the folder of the stand-in host
    std::filesystem::path folder;   // working folder of the program; empty: the current one
    std::filesystem::path csv;      // empty: the built-in drive
    std::filesystem::path script;   // empty: plays a drive
    PlayPlan play;
    bool help = false;
};

struct SimOptionsResult {
    SimOptions options;
    std::string error;  // what is wrong with the arguments; empty if nothing is
};

// Reads the arguments after the program's name. Anything unknown, repeated, out of range or left over is an
// error, so that a misspelt option never plays something else.
SimOptionsResult ParseSimOptions(const std::vector<std::wstring>& arguments);

// What --help prints.
std::string_view SimHelp();

}  // namespace plotvane
