#pragma once

#include <filesystem>
#include <string_view>

namespace plotvane::test {

// The folder of the program that runs; a Windows test program finds the programs under test there.
std::filesystem::path ProgramFolder();

// A folder of data: the one of that name beside the running program, where a kit has it, or, if there is
// none, the one in the tree from which the program was built.
std::filesystem::path DataFolder(std::string_view name, const std::filesystem::path& inTree);

}  // namespace plotvane::test
