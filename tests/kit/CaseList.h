#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace plotvane::kit {

// A test case, "Suite.Name", and what it says: its failures, or why it was skipped. UTF-8.
struct NotedCase {
    std::string name;
    std::string text;
};

// What one test program has found out.
struct CaseList {
    int passed = 0;
    std::vector<NotedCase> failed;
    std::vector<NotedCase> skipped;

    int Total() const { return passed + static_cast<int>(failed.size()) + static_cast<int>(skipped.size()); }
};

// Reads the file that a GoogleTest program writes with --gtest_output=xml. Nothing for a file that is cut
// off, as that of a program that died in the middle of writing, or that is no such file.
std::optional<CaseList> ReadCases(std::string_view xml);

}  // namespace plotvane::kit
