#pragma once

#include <filesystem>
#include <string>

namespace plotvane::test {

// Starts one of Linux's own programs, from /bin, in that folder: for what Windows has no call for. Does not
// wait, because what starts is no Windows process; wait for what it does. Nothing starts where there is no
// such program.
void StartLinuxProgram(const std::wstring& name, const std::wstring& arguments,
                       const std::filesystem::path& folder);

}  // namespace plotvane::test
