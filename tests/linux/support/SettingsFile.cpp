#include "tests/linux/support/SettingsFile.h"

#include <algorithm>

#include "base/AtomicFile.h"
#include "scaling/ModuleScaling.h"
#include "scaling/PrefsFile.h"

namespace plotvane::test {
namespace {

constexpr const char* kModuleFile = "038-906-019-FT.SCL";
constexpr const char* kObdFile = "OBD.SCL";

int SavePrefsEdition(const std::filesystem::path& scaling, int edition) {
    Prefs prefs;
    prefs.backColor = static_cast<Colour>(edition);
    prefs.lineColor.fill(static_cast<Colour>(edition));
    prefs.thickness = edition;
    prefs.fuelHistoryDepth = edition;
    return SavePrefs(scaling / kPrefsFileName, prefs, 600 + edition, 400 + edition);
}

int SaveDefaultsEdition(const std::filesystem::path& scaling, int edition) {
    constexpr int kRows = 20;
    DefaultScaling table(scaling);
    for (int row = 0; row < kRows && table.AppendRow(); ++row) {
        table.SetUnit(row, "\xB0" + std::to_string(row));
        table.SetMax(row, edition);
    }
    return table.SaveDefaultScaling();
}

int SaveRanges(const std::filesystem::path& scaling, int edition, const char* name, bool obd) {
    RunState state;
    state.pixelShift = edition;
    state.obdFile = obd;
    DefaultScaling defaults(scaling);
    ModuleScaling ranges(scaling, defaults, state);
    for (int group = ModuleScaling::kFirstGroup; group <= ModuleScaling::kLastGroup; ++group) {
        for (int field = 0; field < ModuleScaling::kFieldCount; ++field) ranges.SetMin(group, field, edition);
    }
    return ranges.SaveModuleScaling(name);
}

int SaveModuleEdition(const std::filesystem::path& scaling, int edition) {
    return SaveRanges(scaling, edition, kModuleFile, false);
}

int SaveObdEdition(const std::filesystem::path& scaling, int edition) {
    return SaveRanges(scaling, edition, kObdFile, true);
}

}  // namespace

std::vector<SettingsFile> SettingsFiles() {
    return {{kPrefsFileName, SavePrefsEdition},
            {"Defaults.cfg", SaveDefaultsEdition},
            {kModuleFile, SaveModuleEdition},
            {kObdFile, SaveObdEdition}};
}

std::string TestNameOf(const testing::TestParamInfo<SettingsFile>& info) {
    std::string name = info.param.name;
    std::ranges::replace_if(
        name, [](char c) { return c == '.' || c == '-'; }, '_');
    return name;
}

std::set<std::string> NamesIn(const std::filesystem::path& folder) {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        names.insert(entry.path().filename().string());
    }
    return names;
}

void SettingsFileTest::SetUp() {
    m_new = Edition(2);
    m_old = Edition(1);
    ASSERT_EQ(Save(1), 0);
    ASSERT_TRUE(IsOld());
    ASSERT_NE(m_old, m_new);
}

std::string SettingsFileTest::Edition(int edition) const {
    const TempFolder elsewhere;
    EXPECT_EQ(GetParam().save(elsewhere.Path(), edition), 0);
    return BytesOf(elsewhere / GetParam().name);
}

std::string SettingsFileTest::ReadText() const {
    TextInput input = OpenWholeFile(File());
    std::string text = input.IsOpen() ? "" : "(not open)";
    for (int c = input.Get(); c != TextInput::kEnd; c = input.Get()) text += static_cast<char>(c);
    return text;
}

std::string SettingsFileTest::TextOf(std::string bytes) {
    std::erase(bytes, '\r');
    return bytes;
}

}  // namespace plotvane::test
