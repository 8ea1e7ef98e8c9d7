// Settings files of more than 16 MB: the program reads none, and writes none unless the user asks.
#include <gtest/gtest.h>

#include "scaling/ModuleScaling.h"
#include "scaling/PrefsFile.h"
#include "tests/support/TempFolder.h"

namespace plotvane {
namespace {

constexpr std::uintmax_t kTooLarge = 16 * 1024 * 1024 + 1;

class HugeFiles : public testing::Test {
protected:
    std::filesystem::path Path(std::string_view name) const { return m_scaling / name; }
    // Stores these bytes, then zeros up to that size.
    void Store(std::string_view name, std::string_view bytes, std::uintmax_t size) {
        test::WriteBytes(Path(name), bytes);
        std::filesystem::resize_file(Path(name), size);
    }

    test::TempFolder m_scaling;
};

TEST_F(HugeFiles, OfUnitsGiveTheBuiltInTableAndStay) {
    Store("Defaults.cfg", "A,1,2,\r\n", kTooLarge);
    for (const auto load : {&DefaultScaling::LoadForPlotting, &DefaultScaling::LoadDefaultScaling}) {
        DefaultScaling table(m_scaling.Path());
        (table.*load)();
        EXPECT_EQ(table.LastIndex(), 9);
        EXPECT_EQ(table.Row(0).unit, "/min");
        EXPECT_EQ(table.SaveDefaultScaling(), -1);
        EXPECT_EQ(std::filesystem::file_size(Path("Defaults.cfg")), kTooLarge);
    }
    Store("Defaults.cfg", "A,1,2,\r\n", kTooLarge - 1);
    DefaultScaling table(m_scaling.Path());
    table.LoadDefaultScaling();
    EXPECT_EQ(table.Row(0).unit, "A");
}

TEST_F(HugeFiles, OfRangesChangeNothingAndAreNotLoadedWhole) {
    constexpr const char* kEngine = "038-906-019-FT.SCL";
    RunState state;
    DefaultScaling defaults(m_scaling.Path());
    ModuleScaling module(m_scaling.Path(), defaults, state);
    Store(kEngine, "9,\r\n1,5,6,5,6,5,6,5,6,\r\n", kTooLarge);
    state.pixelShift = 4;
    module.SetMax(1, 0, 77);
    EXPECT_EQ(module.LoadModuleScaling(kEngine), ModuleLoad::Failed);
    EXPECT_FALSE(module.IsLoadedWhole());
    EXPECT_EQ(state.pixelShift, 4);
    EXPECT_EQ(module.RangeOf(1, 0).max, 77);
    EXPECT_EQ(std::filesystem::file_size(Path(kEngine)), kTooLarge);
}

TEST_F(HugeFiles, OfPreferencesAreUnreadable) {
    Store("Prefs.cfg", "BackColor=12\n", kTooLarge);
    Prefs prefs;
    EXPECT_FALSE(LoadPrefs(Path("Prefs.cfg"), prefs));
    EXPECT_EQ(prefs.backColor, Prefs{}.backColor);
    Store("Prefs.cfg", "BackColor=12\n", kTooLarge - 1);
    EXPECT_TRUE(LoadPrefs(Path("Prefs.cfg"), prefs));
    EXPECT_EQ(prefs.backColor, 0x12u);
}

}  // namespace
}  // namespace plotvane
