// docs/file-formats.md: the program's own reader reads each example, and the result is what the page says.
#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <string>

#include "scaling/DefaultScaling.h"
#include "scaling/ModuleScaling.h"
#include "scaling/PrefsFile.h"
#include "tests/docs/Page.h"
#include "tests/support/TempFolder.h"

namespace plotvane::test {
namespace {

std::string RangeText(int min, int max) {
    return std::to_string(min) + ".." + std::to_string(max);
}

std::string WithCrLf(std::string_view text) {
    std::string lines;
    for (const std::string& line : Lines(text)) lines += line + "\r\n";
    return lines;
}

// In the example of a scaling file, a line "…" stands for all lines between the one above and the one below,
// each with the values for "not chosen".
std::string Expanded(std::string_view example, int fields) {
    std::string text;
    const std::vector<std::string> lines = Lines(example);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i] != "...") {
            text += lines[i] + "\n";
            continue;
        }
        const int next = i + 1 < lines.size() ? std::atoi(lines[i + 1].c_str()) : 0;
        for (int group = std::atoi(lines[i - 1].c_str()) + 1; group < next; ++group) {
            text += std::to_string(group) + ",";
            for (int field = 0; field < fields; ++field) text += "0,100,";
            text += "\n";
        }
    }
    return text;
}

class FileFormatsTest : public testing::Test {
protected:
    const Page m_page{"docs/file-formats.md"};
    TempFolder m_folder;
    DefaultScaling m_defaults{m_folder.Path()};
    RunState m_state;
    ModuleScaling m_ranges{m_folder.Path(), m_defaults, m_state};
    Prefs m_prefs;
};

TEST_F(FileFormatsTest, DefaultsGiveTheRangesThatThePageStates) {
    WriteBytes(m_folder / "Defaults.cfg", m_page.Example("Defaults.cfg"));
    m_defaults.LoadForPlotting();
    const FieldScaling* row = m_defaults.FindByUnit(Windows1252("°C"));
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(m_defaults.FindByUnit(Windows1252("°c")), nullptr);
    EXPECT_TRUE(m_page.Says("\"°C\" gives " + RangeText(row->min, row->max) + ", \"°c\" nothing"));
}

TEST_F(FileFormatsTest, BuiltInRecordsAreThoseOnThePage) {
    m_defaults.LoadForPlotting();
    std::string first;
    for (int i = 0; i < 3; ++i) {
        const FieldScaling& row = m_defaults.Row(i);
        first += row.unit + "," + std::to_string(row.min) + "," + std::to_string(row.max) + ",\n";
    }
    EXPECT_EQ(m_page.Example("Defaults.cfg"), first);
    for (int i = 3; i <= m_defaults.LastIndex(); ++i) {
        const FieldScaling& row = m_defaults.Row(i);
        EXPECT_TRUE(m_page.Says(Utf8(row.unit) + " " + RangeText(row.min, row.max))) << Utf8(row.unit);
    }

    TempFolder other;
    DefaultScaling ofTheDialog(other.Path());
    ofTheDialog.LoadDefaultScaling();
    EXPECT_TRUE(m_page.Says("(" + ofTheDialog.Row(3).unit + " when the Preferences dialog comes first)"));
}

// "missing", "10 records", "empty", or the records themselves.
void MakeDefaultsFile(const std::filesystem::path& file, const std::string& what) {
    std::filesystem::remove(file);
    std::string text;
    if (what == "missing") return;
    if (what == "10 records") {
        for (char unit = 'a'; unit < 'a' + 10; ++unit) text += std::string(1, unit) + ",0,1,\n";
    } else if (what != "empty") {
        EXPECT_EQ(what, "V,0,20, and A,1,");
        text = "V,0,20,\nA,1,";
    }
    WriteBytes(file, text);
}

TEST_F(FileFormatsTest, DefaultsHaveTheRowCountsOfTheTable) {
    const Table table = m_page.TableOf({"file", "loaded for", "rows that count", "rows searched"});
    EXPECT_EQ(table.size(), 8U);
    for (std::size_t i = 1; i < table.size(); ++i) {
        const Row& row = table[i];
        SCOPED_TRACE(row[0] + ", " + row[1]);
        const auto file = m_folder / "Defaults.cfg";
        MakeDefaultsFile(file, row[0]);
        DefaultScaling table_(m_folder.Path());
        if (row[1] != "Preferences") table_.LoadForPlotting();
        if (row[1] != "plotting") table_.LoadDefaultScaling();
        const int counted = table_.LastIndex() + 1;
        EXPECT_EQ(counted, std::atoi(row[2].c_str()));

        int searched = 0;
        while (searched < counted && table_.FindByUnit(table_.Row(searched).unit) != nullptr) ++searched;
        EXPECT_EQ(searched, std::atoi(row[3].c_str()));

        ASSERT_EQ(table_.SaveDefaultScaling(), 0);
        EXPECT_EQ(Lines(BytesOf(file)).size(), static_cast<std::size_t>(std::atoi(row[4].c_str())));
    }
}

TEST_F(FileFormatsTest, ModuleFileGivesTheRangesThatThePageStates) {
    WriteBytes(m_folder / "M.SCL", Expanded(m_page.Example("<module>.SCL"), ModuleScaling::kFieldCount));
    m_state.pixelShift = 9;
    ASSERT_EQ(m_ranges.LoadModuleScaling("M.SCL"), ModuleLoad::Loaded);
    EXPECT_EQ(m_state.pixelShift, 3);
    std::string told = "Here field 0 of group 1 runs";
    for (int field = 0; field < 3; ++field) {
        const ScaleRange range = m_ranges.RangeOf(1, field);
        if (field > 0) told += ", field " + std::to_string(field);
        told += " from " + std::to_string(range.min) + " to " + std::to_string(range.max);
    }
    EXPECT_TRUE(m_page.Says(told + ".")) << told;
    EXPECT_EQ(m_ranges.RangeOf(1, 3), ScaleRange{});
    EXPECT_EQ(m_ranges.RangeOf(255, 3), ScaleRange{});
}

TEST_F(FileFormatsTest, ModuleFileIsWrittenAsOnThePage) {
    const std::string text = Expanded(m_page.Example("<module>.SCL"), ModuleScaling::kFieldCount);
    WriteBytes(m_folder / "M.SCL", text);
    ASSERT_EQ(m_ranges.LoadModuleScaling("M.SCL"), ModuleLoad::Loaded);
    ASSERT_EQ(m_ranges.SaveModuleScaling("M.SCL"), 0);
    EXPECT_EQ(BytesOf(m_folder / "M.SCL"), WithCrLf(text));
}

TEST_F(FileFormatsTest, ObdFileIsReadAndWrittenAsOnThePage) {
    const std::string text = Expanded(m_page.Example("OBD.SCL"), 1);
    WriteBytes(m_folder / "OBD.SCL", text);
    ASSERT_EQ(m_ranges.LoadModuleScaling("OBD.SCL"), ModuleLoad::Loaded);
    EXPECT_EQ(m_ranges.RangeOf(12, 0), (ScaleRange{0, 6000}));
    EXPECT_EQ(m_ranges.RangeOf(13, 0), (ScaleRange{0, 250}));
    EXPECT_EQ(m_ranges.RangeOf(14, 0), ScaleRange{});
    ASSERT_EQ(m_ranges.SaveModuleScaling("OBD.SCL"), 0);
    EXPECT_EQ(BytesOf(m_folder / "OBD.SCL"), WithCrLf(text));
}

TEST_F(FileFormatsTest, NineNumbersReadInPairsGiveWhatThePageStates) {
    const auto lines = Lines(m_page.Example("<module>.SCL"));
    ASSERT_GT(lines.size(), 2U);
    WriteBytes(m_folder / "M.SCL", lines[0] + "\n" + lines[1] + "\n");
    m_state.obdFile = true;
    ASSERT_EQ(m_ranges.LoadModuleScaling("M.SCL"), ModuleLoad::Loaded);
    const ScaleRange first = m_ranges.RangeOf(1, 0);
    const ScaleRange last = m_ranges.RangeOf(250, 0);
    EXPECT_TRUE(m_page.Says("the line of group 1 above is group 1 (" + RangeText(first.min, first.max) +
                            "), group -10 (dropped) and group 250 (" + RangeText(last.min, last.max) + ")"));
}

TEST_F(FileFormatsTest, PreferencesExampleIsWhatTheFirstRunSaves) {
    ASSERT_EQ(SavePrefs(m_folder / kPrefsFileName, Prefs(), 634, 433), 0);
    const std::string example = m_page.Example(kPrefsFileName);
    EXPECT_EQ(BytesOf(m_folder / kPrefsFileName), WithCrLf(example));
    EXPECT_TRUE(m_page.Says(std::to_string(Lines(example).size()) + " lines, in this order"));
}

TEST_F(FileFormatsTest, PreferencesExampleIsReadBack) {
    WriteBytes(m_folder / kPrefsFileName, m_page.Example(kPrefsFileName));
    m_prefs.lineColor.fill(0x123456);
    m_prefs.width = m_prefs.maxMileage = 1;
    LoadPrefs(m_folder / kPrefsFileName, m_prefs);
    EXPECT_EQ(m_prefs.lineColor, Prefs().lineColor);
    EXPECT_EQ(m_prefs.width, 634);
    EXPECT_EQ(m_prefs.height, 433);
    EXPECT_EQ(m_prefs.maxMileage, 60);
    EXPECT_EQ(m_prefs.maxConsumption, 20);
    EXPECT_EQ(m_prefs.fuelHistoryDepth, 1);
    EXPECT_TRUE(m_prefs.saveWindowSize);
    EXPECT_FALSE(m_prefs.showZeros);
}

TEST_F(FileFormatsTest, EveryPreferenceIsInTheTableWithItsDefault) {
    std::string keys;
    for (const Row& row : m_page.TableOf({"key", "value", "meaning", "when the key is missing"}))
        keys += row[0] + ", ";
    for (const std::string& line : Lines(m_page.Example(kPrefsFileName))) {
        const std::string key = line.substr(0, line.find('='));
        if (key.starts_with("Line") && key != "Line0Color" && key != "Line11Color")
            continue;  // "Line0Color … "
        EXPECT_NE(keys.find(key), std::string::npos) << key;
    }

    WriteBytes(m_folder / kPrefsFileName, "BackColor=0\n");
    m_prefs.width = m_prefs.height = m_prefs.maxMileage = m_prefs.maxConsumption = m_prefs.fuelHistoryDepth =
        7;
    m_prefs.thickness = 7;
    LoadPrefs(m_folder / kPrefsFileName, m_prefs);
    std::map<std::string, std::string> missing;
    for (const Row& row : m_page.TableOf({"key", "value", "meaning", "when the key is missing"}))
        missing[row[0]] = row[3];
    const auto both = [](int first, int second) {
        return std::to_string(first) + ", " + std::to_string(second);
    };
    EXPECT_EQ(missing["Width, Height"], both(m_prefs.width, m_prefs.height));
    EXPECT_EQ(missing["MaxMileage, MaxConsumption"], both(m_prefs.maxMileage, m_prefs.maxConsumption));
    EXPECT_EQ(missing["FuelHistoryDepth"], std::to_string(m_prefs.fuelHistoryDepth));
    EXPECT_EQ(missing["Thickness"], std::to_string(m_prefs.thickness));
    EXPECT_EQ(missing["Autorun"], m_prefs.autorun ? "on" : "off");
    EXPECT_EQ(missing["ShowUnits"], m_prefs.showUnits ? "on" : "off");
    EXPECT_EQ(missing["ShowZeros"], m_prefs.showZeros ? "on" : "off");
    EXPECT_EQ(missing["SaveWindowSize"], m_prefs.saveWindowSize ? "on" : "off");
}

TEST_F(FileFormatsTest, OlderPreferencesAreReadAsThePageStates) {
    WriteBytes(m_folder / kPrefsFileName, m_page.Example("Prefs.cfg, older form"));
    m_prefs.lineColor.fill(0x123456);
    m_prefs.backColor = 0x123456;
    m_prefs.showUnits = false;
    LoadPrefs(m_folder / kPrefsFileName, m_prefs);
    EXPECT_EQ(m_prefs.lineColor, Prefs().lineColor);
    EXPECT_EQ(m_prefs.backColor, kBlack);
    EXPECT_EQ(m_prefs.gridColor, kWhite);
    const auto turns = [](bool on) { return on ? "on" : "off"; };
    EXPECT_TRUE(m_page.Says(std::string("This one turns autorun ") + turns(m_prefs.autorun) + ", units " +
                            turns(m_prefs.showUnits) + " and zeros " + turns(m_prefs.showZeros) + "."));
}

}  // namespace
}  // namespace plotvane::test
