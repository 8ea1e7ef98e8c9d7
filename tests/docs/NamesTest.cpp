// The names in backticks on the pages for developers exist in the sources.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>

#include "tests/docs/Page.h"
#include "tests/support/TempFolder.h"

namespace plotvane::test {
namespace {

bool IsWordCharacter(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
}

// Every word of every source, script and build file, and the files' names; not the words of the pages
// themselves.
std::set<std::string> WordsOfTheSources() {
    std::set<std::string> words;
    const std::set<std::string> extensions{".cpp", ".h", ".rc", ".sh", ".cmake", ".json", ".nsi"};
    for (const std::string& name : AllFiles()) {
        const std::filesystem::path path(name);
        if (!extensions.contains(path.extension().string()) && path.filename() != "CMakeLists.txt") continue;
        words.insert(path.stem().string());
        if (name.starts_with("tests/docs/")) continue;  // they quote words that are in no source
        const std::string text = BytesOf(Root() / path);
        std::string word;
        for (const char c : text + " ") {
            if (IsWordCharacter(c)) {
                word += c;
            } else if (!word.empty()) {
                words.insert(word);
                word.clear();
            }
        }
    }
    return words;
}

// A class, function or variable: letters of both cases without a blank, as in RecordBuffer or OnSize.
bool IsIdentifier(const std::string& span) {
    return std::all_of(span.begin(), span.end(), IsWordCharacter) &&
           std::any_of(span.begin(), span.end(),
                       [](char c) { return std::islower(static_cast<unsigned char>(c)) != 0; }) &&
           std::any_of(span.begin() + 1, span.end(),
                       [](char c) { return std::isupper(static_cast<unsigned char>(c)) != 0; });
}

// A file or folder of the repository: its first part is a name in the root.
bool IsPath(const std::string& span) {
    const std::string first = span.substr(0, span.find('/'));
    return span.find('/') != std::string::npos && span.find_first_of(" <*\\:") == std::string::npos &&
           first != "build" && !first.empty() && std::filesystem::exists(Root() / first);
}

class NamesTest : public testing::TestWithParam<const char*> {};

TEST_P(NamesTest, AreInTheSources) {
    static const std::set<std::string> words = WordsOfTheSources();
    const Page page(GetParam());
    int names = 0;
    for (const std::string& span : page.CodeSpans()) {
        if (IsPath(span)) {
            ++names;
            EXPECT_TRUE(std::filesystem::exists(Root() / span)) << GetParam() << ": no file " << span;
            continue;
        }
        for (std::string name = span; !name.empty();) {
            const std::size_t colons = name.find("::");
            const std::string part = name.substr(0, colons);
            name = colons == std::string::npos ? "" : name.substr(colons + 2);
            if (part.empty() || !IsIdentifier(part)) continue;
            ++names;
            EXPECT_TRUE(words.contains(part)) << GetParam() << ": not in the sources: " << part;
        }
    }
    EXPECT_GT(names, 4) << GetParam();
}

INSTANTIATE_TEST_SUITE_P(Pages, NamesTest,
                         testing::Values("README.md", "CONTRIBUTING.md", "docs/architecture.md",
                                         "docs/release-checklist.md"),
                         [](const auto& page) {
                             std::string name = page.param;
                             std::replace_if(
                                 name.begin(), name.end(), [](char c) { return !IsWordCharacter(c); }, '_');
                             return name;
                         });

TEST(RoomsTest, AreTheFoldersOfTheReadme) {
    std::set<std::string> told;
    for (const Row& row : Page("README.md").TableOf({"room", "what it holds"})) {
        std::istringstream rooms(row.front());
        for (std::string room; rooms >> room;) told.insert(room.substr(0, room.find('/')));
    }
    told.erase("room");  // the heading
    std::set<std::string> folders;
    for (const std::string& name : AllFiles()) {
        if (name.find('/') != std::string::npos) folders.insert(name.substr(0, name.find('/')));
    }
    EXPECT_EQ(told, folders);
}

// For each room, the rooms whose headers it includes. Every room may include the ids of the resources.
std::map<std::string, std::set<std::string>> RoomsUsedByRooms(const std::set<std::string>& rooms) {
    std::map<std::string, std::set<std::string>> used;
    for (const std::string& name : AllFiles()) {
        const std::string room = name.substr(0, name.find('/'));
        if (!rooms.contains(room) || (!name.ends_with(".h") && !name.ends_with(".cpp"))) continue;
        const std::string source = SourceText(name);
        static const std::regex include("#include \"(\\w+)/");
        for (std::sregex_iterator match(source.begin(), source.end(), include), end; match != end; ++match) {
            const std::string other = (*match)[1];
            if (other != room && other != "res") used[room].insert(other);
        }
    }
    return used;
}

TEST(RoomsTest, UseEachOtherAsTheArchitectureStates) {
    const Table table = Page("docs/architecture.md").TableOf({"room", "uses"});
    std::set<std::string> rooms;
    for (std::size_t i = 1; i < table.size(); ++i) rooms.insert(table[i].at(0));
    EXPECT_EQ(rooms.size(), 11U);
    auto used = RoomsUsedByRooms(rooms);
    std::set<std::string> below = rooms;
    for (std::size_t i = 1; i < table.size(); ++i) {
        const std::string& room = table[i].at(0);
        below.erase(room);
        std::set<std::string> told;
        std::istringstream words(table[i].at(1));
        for (std::string word; std::getline(words, word, ',');) {
            told.insert(word.substr(word.find_first_not_of(' ')));
        }
        EXPECT_EQ(told, used[room]) << room;
        EXPECT_TRUE(std::includes(below.begin(), below.end(), told.begin(), told.end()))
            << room << " uses a room above it in the table";
    }
}

TEST(TestLayersTest, AreTheFoldersOfTheirTable) {
    std::string told;
    for (const Row& row : Page("docs/architecture.md").TableOf({"layer", "where"})) told += row.at(1) + "\n";
    for (const auto& entry : std::filesystem::directory_iterator(Root() / "tests")) {
        const std::string folder = "tests/" + entry.path().filename().string();
        if (!entry.is_directory() || folder == "tests/support") continue;
        EXPECT_NE(told.find(folder), std::string::npos) << folder;
    }
}

TEST(IconsTest, AreTheOnesOfTheirTable) {
    const std::string ids = SourceText("res/resource.h");
    const Table table = Page("res/icons/README.md").TableOf({"Id", "Name", "File", "Shown"});
    EXPECT_EQ(table.size(), 13U);
    for (std::size_t i = 1; i < table.size(); ++i) {
        const std::regex definition("#define " + table[i][1] + " +" + table[i][0] + "\\b");
        EXPECT_TRUE(std::regex_search(ids, definition)) << table[i][1];
        for (const char* extension : {".svg", ".ico"}) {
            EXPECT_TRUE(std::filesystem::exists(Root() / "res/icons" / (table[i][2] + extension)))
                << table[i][2];
        }
    }
}

TEST(FuzzTargetsTest, AreTheOnesOfTheirTable) {
    std::set<std::string> told;
    for (const Row& row : Page("fuzz/README.md").TableOf({"target", "what it runs"}))
        told.insert(row.front());
    told.erase("target");
    std::set<std::string> seeded;
    for (const auto& entry : std::filesystem::directory_iterator(Root() / "fuzz/seeds")) {
        seeded.insert(entry.path().filename().string());
    }
    EXPECT_EQ(told, seeded);
}

}  // namespace
}  // namespace plotvane::test
