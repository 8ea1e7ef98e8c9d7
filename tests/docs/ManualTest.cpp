// The manual says what the program shows: its messages, the texts of its controls and menus, its figures.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <utility>

#include "logs/LabelFile.h"
#include "logs/ModuleKey.h"
#include "plot/binding/AirFuelRule.h"
#include "plot/binding/FuelFigures.h"
#include "scaling/DefaultScaling.h"
#include "tests/docs/Page.h"
#include "tests/support/FakeViews.h"
#include "tests/support/PlotFixture.h"
#include "tests/support/TempFolder.h"

namespace plotvane::test {
namespace {

// The groups of a pattern, for each of its matches in a text.
std::vector<Row> Matches(const std::string& text, const std::string& pattern) {
    std::vector<Row> matches;
    const std::regex expression(pattern);
    for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end; ++match) {
        Row groups;
        for (std::size_t group = 1; group < match->size(); ++group) groups.push_back((*match)[group].str());
        matches.push_back(groups);
    }
    return matches;
}

// The program's texts, by the names of their ids.
std::map<std::string, std::string> StringTable() {
    std::map<std::string, std::string> table;
    for (const Row& entry : Matches(SourceText("res/strings.rc"), R"re((IDS_\w+) +"([^"]*)")re"))
        table[entry[0]] = entry[1];
    EXPECT_GT(table.size(), 30U);
    return table;
}

bool IsProgramSource(const std::string& name) {
    static const std::set<std::string> rooms{"app",  "link",  "scaling", "logs",
                                             "plot", "meter", "model",   "files"};
    return name.ends_with(".cpp") && rooms.contains(name.substr(0, name.find('/')));
}

// Each message as the manual writes it: "text" ("title"). The sources name both in the call that shows the
// message, except for the preferences, where the rule for the invalid number gives the text.
std::set<std::string> MessagesOfTheProgram() {
    std::set<std::string> messages;
    auto texts = StringTable();
    const auto add = [&](const std::string& text, const std::string& title) {
        messages.insert("\"" + texts[text] + "\" (\"" + texts[title] + "\")");
    };
    for (const std::string& name : AllFiles()) {
        if (!IsProgramSource(name)) continue;
        const std::string source = SourceText(name);
        for (const Row& call :
             Matches(source, R"((?:(?:ShowMessage|Reject)\(|ShowBox\(\w+, )([\w>-]+), (\w+))")) {
            if (call[0].starts_with("IDS_")) {
                add(call[0], call[1]);
            } else if (call[0] == "rejection->messageId") {
                for (const Row& id : Matches(SourceText("scaling/PrefsNumberEdit.cpp"), R"((IDS_\w+))"))
                    add(id[0], call[1]);
            } else if (call[0] != "textId") {  // which is what a caller has named
                ADD_FAILURE() << name << " shows a message whose texts this test cannot find: " << call[0];
            }
        }
    }
    return messages;
}

// Without this, the list above could miss messages.
TEST(ManualMessagesTest, AreShownByOneFunctionOfEachDialog) {
    std::set<std::string> callers;
    for (const std::string& name : AllFiles()) {
        if (IsProgramSource(name) && SourceText(name).find("MessageBox") != std::string::npos)
            callers.insert(name);
    }
    EXPECT_EQ(callers, (std::set<std::string>{"app/PlotvaneDlg.cpp", "scaling/PrefsDlg.cpp"}));
    for (const std::string& name : callers)
        EXPECT_EQ(Matches(SourceText(name), "(MessageBox)").size(), 1U) << name;
}

TEST(ManualMessagesTest, AreThoseOfTheProgram) {
    std::set<std::string> told;
    const Table table = Page("docs/manual/messages.md").TableOf({"message (title)", "cause", "cure"});
    for (std::size_t i = 1; i < table.size(); ++i) told.insert(table[i].front());
    const std::set<std::string> shown = MessagesOfTheProgram();
    EXPECT_GE(shown.size(), 11U);
    EXPECT_EQ(told, shown);
}

TEST(ManualMessagesTest, AllHaveACauseAndACure) {
    for (const Row& row : Page("docs/manual/messages.md").TableOf({"message (title)", "cause", "cure"})) {
        EXPECT_GT(row.at(1).size(), 3U) << row.front();
        EXPECT_GT(row.at(2).size(), 3U) << row.front();
    }
}

TEST(ManualMeterTest, ListsTheMenuInItsOrder) {
    Row told;
    const Table table = Page("docs/manual/meters.md").TableOf({"item", "does"});
    for (std::size_t i = 1; i < table.size(); ++i) {
        for (const Row& item : Matches(table[i].front(), "([^,]+),? ?")) told.push_back(item[0]);
    }
    Row menu;
    for (const Row& item : Matches(SourceText("res/meter-menu.rc"), "MENUITEM \"([^\"]*)\""))
        menu.push_back(item[0]);
    EXPECT_EQ(told, menu);
}

// The texts of a dialog, without the marks of their access keys and without colons at the end. Texts with an
// x are placeholders that the program fills.
std::set<std::string> TextsOf(const std::string& resource) {
    std::set<std::string> texts;
    for (const Row& match : Matches(SourceText(resource), R"re((?:\(|PUSHBUTTON |CONTROL )"([^"]{3,})")re")) {
        std::string text = match[0];
        std::erase(text, '&');
        if (text.ends_with(':')) text.pop_back();
        if (text.find(" x") == std::string::npos && text.find(" X") == std::string::npos) texts.insert(text);
    }
    EXPECT_GT(texts.size(), 5U);
    return texts;
}

TEST(ManualPreferencesTest, NamesEveryControl) {
    const Page page("docs/manual/preferences.md");
    for (const std::string& text : TextsOf("res/prefs-dialog.rc")) EXPECT_TRUE(page.Says(text)) << text;
}

TEST(ManualMainWindowTest, NamesEveryControl) {
    const Page page("docs/manual/main-window.md");
    for (const std::string& text : TextsOf("res/main-dialog.rc")) EXPECT_TRUE(page.Says(text)) << text;
    EXPECT_TRUE(page.Says("\"" + StringTable()["IDS_PIXEL_SHIFT"] + "3\""));
}

TEST(ManualScalingTest, ListsTheUnitsThatAreKnownFromTheStart) {
    const TempFolder folder;
    DefaultScaling defaults(folder.Path());
    defaults.LoadForPlotting();
    std::set<Row> known;
    for (int i = 0; i <= defaults.LastIndex(); ++i) {
        const FieldScaling& row = defaults.Row(i);
        const std::string unit = row.unit == "mg/str" ? "mg/str or mg/R" : Utf8(row.unit);
        known.insert({unit, std::to_string(row.min), std::to_string(row.max)});
    }
    std::set<Row> told;
    const Table table = Page("docs/manual/scaling.md").TableOf({"unit", "minimum", "maximum"});
    for (std::size_t i = 1; i < table.size(); ++i) {
        const Row& row = table[i];
        ASSERT_EQ(row.size(), 7U);
        told.insert({row[0], row[1], row[2]});
        told.insert({row[4], row[5], row[6]});
    }
    EXPECT_EQ(told, known);
}

TEST(ManualLabelsTest, ShowsLinesThatAreRead) {
    const Page page("docs/manual/labels.md");
    const TempFolder folder;
    WriteBytes(folder / "038-906-019.LBL", page.Example("038-906-019.LBL"));
    WriteBytes(folder / "038-906-019-A.LBL", page.Example("label lines"));
    LabelTable labels;
    LoadLabels(folder.Path(), KeyStemOf(ScalingFileNameOf("038 906 019 FT")), labels);
    EXPECT_EQ(labels.GroupTitle(1), "Engine");
    EXPECT_EQ(labels.FieldName(1, 1), "Engine speed");
    EXPECT_EQ(labels.FieldSecondText(1, 1), "actual");
    LoadLabels(folder.Path(), KeyStemOf(ScalingFileNameOf("038 906 019 XY")), labels);
    EXPECT_EQ(labels.GroupTitle(1), "") << "only the listed suffixes go to the other file";
}

TEST(ManualAirFuelTest, ListsTheGroups) {
    std::string groups;
    int last = 0;
    for (int group = 1; group <= 255; ++group) {
        if (!IsLambdaGroup(group)) continue;
        if (last > 0) groups += (groups.empty() ? "" : ", ") + std::to_string(last);
        last = group;
    }
    groups += " and " + std::to_string(last);
    EXPECT_TRUE(Page("docs/manual/air-fuel.md").Says("measuring groups " + groups + " a value")) << groups;
}

using ManualFuelTest = PlotFixture;

TEST_F(ManualFuelTest, ComputesItsExample) {
    Fill(0, 1, 0, 8.0, "l/h");
    Fill(1, 1, 1, 100.0, "km/h");
    FuelFigures fuel{{"MPG", "L/100km", "Gal. per Hour"}};
    fuel.UpdateFuel(sample, views);
    std::array<char, 64> told{};
    std::snprintf(told.data(), told.size(), "8 l/h at 100 km/h is %.1f L/100km and %.1f MPG",
                  fuel.Consumption(), fuel.Mileage());
    EXPECT_TRUE(Page("docs/manual/fuel.md").Says(told.data())) << told.data();
}

// The left column names the contents of the package; the number of samples is spelled out.
TEST(ReadMeFirstTest, NamesTheContentsOfThePackage) {
    const std::string text = SourceText("packaging/read-me-first.txt");
    for (const char* folder : {"Scaling", "LOGS", "labels"}) {
        EXPECT_TRUE(std::filesystem::is_directory(Root() / "samples" / folder));
        EXPECT_NE(text.find("\n" + std::string(folder) + " "), std::string::npos) << folder;
    }
    const auto logs = std::distance(std::filesystem::directory_iterator(Root() / "samples/LOGS"), {});
    EXPECT_EQ(logs, 5);
    EXPECT_NE(text.find("five samples are there"), std::string::npos);
    EXPECT_TRUE(std::filesystem::exists(Root() / "samples/LOGS/drive.csv"));
}

}  // namespace
}  // namespace plotvane::test
