#pragma once

#include <filesystem>
#include <string>

namespace plotvane::test {

// Has Linux's shell run a command in a folder that can be written, and waits for its end: for what Windows
// has no call for. False if the command failed, or if there is no such shell; the latter fails the test too.
bool RunInShell(const std::filesystem::path& folder, const std::wstring& command);

}  // namespace plotvane::test
