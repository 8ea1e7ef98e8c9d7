#pragma once

#include <filesystem>
#include <string>

namespace plotvane::test {

// Lets Linux's shell run a command that Windows has no call for, and waits for its end. The shell must be
// able to write into the folder. False if the command failed, or if there is no shell; that fails the test
// too.
bool RunInShell(const std::filesystem::path& folder, const std::wstring& command);

}  // namespace plotvane::test
