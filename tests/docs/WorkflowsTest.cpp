// The hosted build: its files can be read, and what they run is what the tests here run too.
#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>

#include "tests/docs/Page.h"
#include "tests/docs/Yaml.h"

namespace plotvane::test {
namespace {

using Values = std::map<std::string, std::string>;

std::vector<std::string> Workflows() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(Root() / ".github/workflows"))
        names.push_back(".github/workflows/" + entry.path().filename().string());
    return names;
}

std::vector<std::string> WordsOf(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> words;
    for (std::string word; stream >> word;) words.push_back(word);
    return words;
}

// The commands of all steps, one line each.
std::vector<std::string> CommandsOf(const Values& workflow) {
    std::vector<std::string> commands;
    for (const auto& [path, value] : workflow) {
        if (!path.ends_with(".run")) continue;
        for (const std::string& line : Lines(value)) commands.push_back(line);
    }
    return commands;
}

bool IsOurs(const std::string& program) {
    return program.find('/') != std::string::npos || program.ends_with(".cmd") || program.ends_with(".sh");
}

// Where a script lies in this tree; a kit has its runner from packaging/.
std::filesystem::path PlaceOf(const std::string& script) {
    return script.find('/') == std::string::npos ? Root() / "packaging" / script : Root() / script;
}

// What the suite itself is started with, and what the checks of the packages run.
bool IsTried(const std::string& script) {
    return script == ".ci/run" || SourceText("packaging/check.sh").find(script) != std::string::npos;
}

TEST(Workflows, CanBeRead) {
    EXPECT_FALSE(Workflows().empty());
    for (const std::string& name : Workflows()) {
        const Values values = ReadYaml(SourceText(name));
        EXPECT_TRUE(values.contains("name")) << name;
        EXPECT_FALSE(CommandsOf(values).empty()) << name;
    }
}

TEST(Workflows, RunOnlyCommandsThatTheTestsRunToo) {
    const std::set<std::string> common{"apt-get", "git", "cd", "call", "Expand-Archive"};
    int scripts = 0;
    for (const std::string& name : Workflows()) {
        for (const std::string& command : CommandsOf(ReadYaml(SourceText(name)))) {
            const std::vector<std::string> words = WordsOf(command);
            ASSERT_FALSE(words.empty()) << name;
            const std::string& program = words.front() == "call" ? words.at(1) : words.front();
            if (!IsOurs(program)) {
                EXPECT_TRUE(common.contains(program)) << command;
                continue;
            }
            ++scripts;
            EXPECT_TRUE(std::filesystem::exists(PlaceOf(program))) << command;
            EXPECT_TRUE(IsTried(program)) << command;
        }
    }
    EXPECT_EQ(scripts, 4);
}

TEST(Workflows, TakeTheKitThatOneJobMakesToTheOther) {
    const Values values = ReadYaml(SourceText(".github/workflows/tests.yml"));
    EXPECT_EQ(values.at("jobs.windows.needs"), "debian");
    std::string made;
    for (const auto& [path, value] : values) {
        if (path.starts_with("jobs.debian.") && path.ends_with(".with.name") && value == "windows-tests") {
            made = values.at(path.substr(0, path.size() - 4) + "path");
        }
    }
    EXPECT_EQ(made, "build/package/plotvane-*-windows-tests.zip");
    EXPECT_EQ(values.at("jobs.windows.steps.0.with.name"), "windows-tests");
    EXPECT_NE(SourceText("scripts/package.sh").find("-windows-tests"), std::string::npos);
}

TEST(Yaml, ThatIsBrokenIsNotRead) {
    EXPECT_THROW(ReadYaml("jobs:\n  one: [\n"), std::runtime_error);
    EXPECT_THROW(ReadYaml("jobs:\n\t- one\n"), std::runtime_error);
    EXPECT_THROW(ReadYaml("on: push\non: pull\n"), std::runtime_error);
    EXPECT_EQ(ReadYaml("a:\n  - b: c\n").at("a.0.b"), "c");
}

}  // namespace
}  // namespace plotvane::test
