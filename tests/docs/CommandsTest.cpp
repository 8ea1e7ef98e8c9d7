// Every command of this project that a page tells its reader to type names something that exists, with
// arguments that it accepts.
#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <sstream>
#include <string>

#include "tests/docs/Page.h"

namespace plotvane::test {
namespace {

using Words = std::vector<std::string>;

// The words of a shell line, without its comment and its quotes. && separates commands and is a word too.
Words WordsOf(const std::string& line) {
    Words words;
    std::istringstream stream(line);
    for (std::string word; stream >> word;) {
        if (word.starts_with('#')) break;
        std::erase(word, '\'');
        words.push_back(word);
    }
    return words;
}

bool HasText(const std::string& file, const std::string& text) {
    return SourceText(file).find(text) != std::string::npos;
}

// Collects the word after each `mark` in the text of a build file: the name of a target. It ends at a blank
// or parenthesis.
void CollectAfter(const std::string& text, std::string_view mark, std::set<std::string>& names) {
    for (std::size_t at = text.find(mark); at != std::string::npos; at = text.find(mark, at + 1)) {
        const std::size_t begin = at + mark.size();
        names.insert(text.substr(begin, text.find_first_of(" )\n", begin) - begin));
    }
}

std::set<std::string> Targets() {
    std::set<std::string> names;
    for (const std::string& name : AllFiles()) {
        if (!name.ends_with("CMakeLists.txt")) continue;
        for (const char* mark : {"add_executable(", "add_library(", "add_custom_target("}) {
            CollectAfter(SourceText(name), mark, names);
        }
    }
    return names;
}

class CommandsTest : public testing::Test {
protected:
    // What is wrong with one command; empty if nothing is.
    std::string Complaint(const Words& words) const {
        const std::string& program = words.front();
        if (program.starts_with("scripts/") || program.starts_with("packaging/"))
            return ComplaintAboutScript(words);
        if (program.starts_with("build/")) return ComplaintAboutProgram(words);
        if (program == "cmake" || program == "ctest") return ComplaintAboutBuild(words);
        return m_commonPrograms.contains(program) ? "" : "neither a common program nor one of this project";
    }

private:
    // A script's own text shows which words and options it accepts. Numbers and file names may be anything.
    static std::string ComplaintAboutScript(const Words& words) {
        const std::string& script = words.front();
        const auto file = Root() / script;
        if (!std::filesystem::exists(file)) return "no such script";
        using std::filesystem::perms;
        if ((std::filesystem::status(file).permissions() & perms::owner_exec) == perms::none)
            return "not executable";
        for (std::size_t i = 1; i < words.size(); ++i) {
            const std::string word = words[i].substr(0, words[i].find('='));
            const bool isFree = word.find_first_not_of("0123456789") == std::string::npos ||
                                word.find('.') != std::string::npos;
            const bool isFuzzTarget =
                script == "scripts/fuzz.sh" && std::filesystem::exists(Root() / "fuzz/seeds" / word);
            if (!isFree && !isFuzzTarget && !HasText(script, word)) return "does not take " + word;
        }
        return "";
    }

    // build/PRESET/PROGRAM
    std::string ComplaintAboutProgram(const Words& words) const {
        const std::filesystem::path path = words.front();
        const std::string preset = path.parent_path().filename().string();
        if (!HasText("CMakePresets.json", "\"name\": \"" + preset + "\"")) return "no preset " + preset;
        if (!m_targets.contains(path.stem().string())) return "no target " + path.stem().string();
        for (std::size_t i = 1; i < words.size(); ++i) {
            constexpr std::string_view kFilter = "--gtest_filter=";
            if (words[i].starts_with(kFilter)) return ComplaintAboutSuite(words[i].substr(kFilter.size()));
        }
        return "";
    }

    static std::string ComplaintAboutSuite(std::string suite) {
        suite.erase(suite.find_first_of(".*"));
        for (const std::string& file : AllFiles()) {
            if (file.starts_with("tests/") && file.find("/" + suite) != std::string::npos) return "";
        }
        return "no test begins with " + suite;
    }

    std::string ComplaintAboutBuild(const Words& words) const {
        for (std::size_t i = 1; i + 1 < words.size(); ++i) {
            const std::string& value = words[i + 1];
            if (words[i] == "--preset" && !HasText("CMakePresets.json", "\"name\": \"" + value + "\"")) {
                return "no preset " + value;
            }
            if (words[i] == "--target" && !m_targets.contains(value)) return "no target " + value;
        }
        return "";
    }

    const std::set<std::string> m_targets = Targets();
    const std::set<std::string> m_commonPrograms{"git", "apt-get", "export", "cd", "sha256sum", "wine"};
};

TEST_F(CommandsTest, ExistAndAcceptTheirArguments) {
    int commands = 0;
    for (const std::string& name : AllPages()) {
        const Page page(name);
        for (const CodeBlock& block : page.CodeBlocks()) {
            if (block.info != "sh") continue;
            for (const std::string& line : Lines(block.text)) {
                Words command;
                Words words = WordsOf(line);
                words.emplace_back("&&");
                for (const std::string& word : words) {
                    if (word != "&&") {
                        command.push_back(word);
                    } else if (!command.empty()) {
                        ++commands;
                        EXPECT_EQ(Complaint(command), "")
                            << name << ", block in line " << block.line << ": " << line;
                        command.clear();
                    }
                }
            }
        }
    }
    EXPECT_GE(commands, 14);
}

// Commands in running text: `scripts/test.sh`, `scripts/run.sh live --help`.
TEST_F(CommandsTest, InRunningTextExistToo) {
    int commands = 0;
    for (const std::string& name : AllPages()) {
        const Page page(name);
        for (const std::string& span : page.CodeSpans()) {
            const Words words = WordsOf(span);
            if (words.empty()) continue;
            const bool isScript =
                words.front().ends_with(".sh") && words.front().find('/') != std::string::npos;
            if (!isScript && words.front() != "cmake" && words.front() != "ctest") continue;
            ++commands;
            // The options after "live" belong to another program.
            const bool isForeign = words.size() > 1 && words[1] == "live";
            EXPECT_EQ(Complaint(isForeign ? Words{words[0], words[1]} : words), "") << name << ": " << span;
        }
    }
    EXPECT_GE(commands, 10);
}

// The summary of the page must name every script that a newcomer might look for.
TEST_F(CommandsTest, ReadmeNamesEveryScriptThatPeopleRun) {
    std::string told;
    const Page readme("README.md");
    for (const CodeBlock& block : readme.CodeBlocks()) told += block.text;
    for (const std::string& span : readme.CodeSpans()) told += span + "\n";
    const std::set<std::string> helpers{"common.sh",       "test-summary.sh",    "wine-run.sh",
                                        "render-icons.sh", "picture-sources.sh", "mutation.awk"};
    for (const auto& entry : std::filesystem::directory_iterator(Root() / "scripts")) {
        const std::string script = entry.path().filename().string();
        if (helpers.contains(script)) continue;
        EXPECT_NE(told.find("scripts/" + script), std::string::npos) << script;
    }
}

}  // namespace
}  // namespace plotvane::test
