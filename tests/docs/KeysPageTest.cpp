// The manual's page of keys and the tips of the buttons name the keys that the program has, and no others.
#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>

#include "tests/docs/Page.h"

namespace plotvane::test {
namespace {

std::string NameOf(const std::string& code) {
    static const std::map<std::string, std::string> names{
        {"VK_PAUSE", "Pause"}, {"VK_PRIOR", "Page Up"}, {"VK_NEXT", "Page Down"},
        {"VK_LEFT", "Left"},   {"VK_RIGHT", "Right"},   {"VK_OEM_COMMA", "Comma"},
    };
    if (const auto named = names.find(code); named != names.end()) return named->second;
    if (code.starts_with("VK_")) return code.substr(3);  // VK_F5
    return code.substr(1, 1);                            // "O", with its quotes
}

// The keys of the resource as people write them, and the command of each.
std::map<std::string, std::string> KeysOfTheProgram() {
    std::map<std::string, std::string> keys;
    const std::string table = SourceText("res/keys.rc");
    const std::regex entry(R"re(("\w"|VK_\w+), +(ID_KEY_\w+), +VIRTKEY(.*))re");
    for (std::sregex_iterator match(table.begin(), table.end(), entry), end; match != end; ++match) {
        const std::string modifiers = (*match)[3];
        std::string key;
        if (modifiers.find("CONTROL") != std::string::npos) key += "Ctrl+";
        if (modifiers.find("SHIFT") != std::string::npos) key += "Shift+";
        keys[key + NameOf((*match)[1])] = (*match)[2];
    }
    return keys;
}

// For each key of the page, its line.
std::map<std::string, int> KeysOfThePage() {
    std::map<std::string, int> keys;
    const Table table = Page("docs/manual/keys.md").TableOf({"key", "does"});
    for (std::size_t line = 1; line < table.size(); ++line) {
        std::istringstream cell(table[line].at(0));
        for (std::string key; std::getline(cell, key, ',');)
            keys[key.substr(key.find_first_not_of(' '))] = static_cast<int>(line);
    }
    return keys;
}

TEST(KeysPageTest, NamesTheKeysOfTheProgram) {
    std::set<std::string> told;
    std::set<std::string> known;
    for (const auto& [key, line] : KeysOfThePage()) told.insert(key);
    for (const auto& [key, command] : KeysOfTheProgram()) known.insert(key);
    EXPECT_EQ(told, known);
    EXPECT_GE(known.size(), 17U);
}

TEST(KeysPageTest, EachCommandHasAKey) {
    std::set<std::string> withKey;
    for (const auto& [key, command] : KeysOfTheProgram()) withKey.insert(command);
    const std::string ids = SourceText("res/resource.h");
    const std::regex definition(R"re(#define (ID_KEY_(?!FIRST|LAST)\w+) )re");
    std::set<std::string> commands;
    for (std::sregex_iterator match(ids.begin(), ids.end(), definition), end; match != end; ++match)
        commands.insert((*match)[1]);
    EXPECT_EQ(withKey, commands);
}

// The tip of a button ends with the key in brackets.
TEST(KeysPageTest, TheTipsNameKeysOfTheProgram) {
    const auto known = KeysOfTheProgram();
    const std::string texts = SourceText("res/strings.rc");
    const std::regex tip(R"re(IDS_TIP_(\w+) +"[^"]*\(([^)]+)\)")re");
    int tips = 0;
    for (std::sregex_iterator match(texts.begin(), texts.end(), tip), end; match != end; ++match, ++tips)
        EXPECT_TRUE(known.contains((*match)[2])) << (*match)[1];
    EXPECT_GE(tips, 9);
}

// F1 asks for them by the names of their files.
TEST(KeysPageTest, ThePagesThatTheProgramAsksForAreThere) {
    const std::string source = SourceText("app/KeyCommands.cpp");
    const std::regex page(R"re(return "([\w-]+)";)re");
    std::set<std::string> asked;
    for (std::sregex_iterator match(source.begin(), source.end(), page), end; match != end; ++match)
        asked.insert((*match)[1]);
    EXPECT_GE(asked.size(), 4U);
    for (const std::string& name : asked) EXPECT_FALSE(Page("docs/manual/" + name + ".md").IsEmpty()) << name;
}

}  // namespace
}  // namespace plotvane::test
