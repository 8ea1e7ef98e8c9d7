#pragma once

#include <filesystem>
#include <string>

namespace plotvane::test {

// Limits what the program that runs in this folder may have of the machine. `limit` is an option of Linux's
// prlimit, such as "--fsize=0:"; with the colon, any user can lift it again. In it, $p is the folder of the
// process below /proc. False if no program runs there.
bool LimitProgram(const std::filesystem::path& folder, const std::wstring& limit);

}  // namespace plotvane::test
