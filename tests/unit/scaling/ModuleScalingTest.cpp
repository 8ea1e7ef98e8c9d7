#include "scaling/ModuleScaling.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#ifdef _WIN32
#include <share.h>

#include <cstdio>
#endif

#include "tests/support/TempFolder.h"

namespace plotvane {
namespace {

constexpr const char* kEngine = "038-906-019-FT.SCL";
constexpr const char* kObd = "OBD.SCL";

// A file as the program writes it: first line, then each group 1..255 with the same numbers.
std::string FileOf(int pixelShift, const std::string& numbers) {
    std::string text = std::to_string(pixelShift) + ",\r\n";
    for (int group = 1; group <= 255; ++group) text += std::to_string(group) + "," + numbers + "\r\n";
    return text;
}

std::string NewFile(int pixelShift = 3) {
    return FileOf(pixelShift, "0,100,0,100,0,100,0,100,");
}
std::string NewObdFile(int pixelShift = 3) {
    return FileOf(pixelShift, "0,100,");
}

std::string Replaced(std::string text, std::string_view from, std::string_view to) {
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return text.replace(at, from.size(), to);
}

class ModuleScalingTest : public testing::Test {
protected:
    std::string BytesOf(std::string_view name) const { return test::BytesOf(m_scaling / name); }
    void Store(std::string_view name, std::string_view bytes) {
        std::filesystem::create_directory(m_scaling);
        test::WriteBytes(m_scaling / name, bytes);
    }
    void ExpectRange(int group, int field, int min, int max) {
        EXPECT_EQ(m_module.RangeOf(group, field).min, min) << group << ' ' << field;
        EXPECT_EQ(m_module.RangeOf(group, field).max, max) << group << ' ' << field;
    }

    test::TempFolder m_folder;
    std::filesystem::path m_scaling = m_folder / "Scaling";
    RunState m_state;
    DefaultScaling m_defaults{m_scaling};
    ModuleScaling m_module{m_scaling, m_defaults, m_state};
};

TEST_F(ModuleScalingTest, AMissingFileIsCreatedWith0To100Everywhere) {
    EXPECT_EQ(m_module.LoadModuleScaling(kEngine), ModuleLoad::Loaded);
    EXPECT_EQ(BytesOf(kEngine), NewFile());
    EXPECT_EQ(m_state.pixelShift, 3);
    EXPECT_EQ(m_module.LoadedName(), kEngine);
    EXPECT_TRUE(m_module.IsLoadedWhole());
    EXPECT_FALSE(m_state.obdFile);
    ExpectRange(1, 0, 0, 100);
    ExpectRange(255, 3, 0, 100);
}

TEST_F(ModuleScalingTest, ANewFileGetsThePresentPixelShift) {
    m_state.pixelShift = 7;
    EXPECT_EQ(m_module.LoadModuleScaling(kEngine), ModuleLoad::Loaded);
    EXPECT_EQ(BytesOf(kEngine), NewFile(7));
    EXPECT_EQ(m_state.pixelShift, 7);
}

TEST_F(ModuleScalingTest, LoadingAlsoLoadsTheDefaultTable) {
    EXPECT_EQ(m_module.LoadModuleScaling(kEngine), ModuleLoad::Loaded);
    EXPECT_EQ(m_defaults.LastIndex(), 9);
    EXPECT_EQ(m_defaults.Row(3).unit, "mg/str");
    EXPECT_TRUE(std::filesystem::exists(m_scaling / "Defaults.cfg"));
    EXPECT_EQ(m_module.LoadModuleScaling("another.SCL"), ModuleLoad::Loaded);
    EXPECT_EQ(m_defaults.LastIndex(), 10);  // read back from the file this time
}

TEST_F(ModuleScalingTest, TheCurrentFileIsNotReadAgain) {
    EXPECT_EQ(m_module.LoadModuleScaling(kEngine), ModuleLoad::Loaded);
    Store(kEngine, FileOf(9, "1,2,3,4,5,6,7,8,"));
    EXPECT_EQ(m_module.LoadModuleScaling(kEngine), ModuleLoad::AlreadyLoaded);
    EXPECT_EQ(m_state.pixelShift, 3);
    ExpectRange(1, 0, 0, 100);
}

TEST_F(ModuleScalingTest, AForgottenFileIsReadAgain) {
    EXPECT_EQ(m_module.LoadModuleScaling(kEngine), ModuleLoad::Loaded);
    Store(kEngine, FileOf(9, "1,2,3,4,5,6,7,8,"));
    m_module.ForgetLoadedName();
    EXPECT_FALSE(m_module.IsLoadedWhole());
    for (const char* const key : {"", "Bogus", ".SCL", "Bogus.SCL", kEngine}) {
        EXPECT_NE(m_module.LoadedName(), key);
    }
    EXPECT_EQ(m_module.LoadModuleScaling(kEngine), ModuleLoad::Loaded);
    EXPECT_EQ(m_state.pixelShift, 9);
    ExpectRange(1, 0, 1, 2);
    ExpectRange(1, 3, 7, 8);
    ExpectRange(255, 3, 7, 8);
}

TEST_F(ModuleScalingTest, AModuleNamedBogusLoadsAfterForgetting) {
    m_module.ForgetLoadedName();
    EXPECT_EQ(m_module.LoadModuleScaling("Bogus"), ModuleLoad::Loaded);
    EXPECT_EQ(m_module.LoadModuleScaling("Bogus.SCL"), ModuleLoad::Loaded);
}

TEST_F(ModuleScalingTest, NothingIsLoadedAtTheProgramsStart) {
    EXPECT_EQ(m_module.LoadedName(), "");
    EXPECT_FALSE(m_module.IsLoadedWhole());
    ExpectRange(1, 0, 0, 100);
}

TEST_F(ModuleScalingTest, StopWritesTheChosenRanges) {
    EXPECT_EQ(m_module.LoadModuleScaling(kEngine), ModuleLoad::Loaded);
    m_module.SetMax(1, 0, 6000);
    m_module.SetMin(1, 1, -10);
    m_module.SetMax(1, 1, 120);
    m_module.SetMax(1, 2, 250);
    EXPECT_EQ(m_module.SaveModuleScaling(kEngine), 0);
    EXPECT_EQ(BytesOf(kEngine), Replaced(NewFile(), "\r\n1,0,100,0,100,0,100,0,100,\r\n",
                                         "\r\n1,0,6000,-10,120,0,250,0,100,\r\n"));
}

TEST_F(ModuleScalingTest, WhatStopWroteIsReadBackTheSame) {
    EXPECT_EQ(m_module.LoadModuleScaling(kEngine), ModuleLoad::Loaded);
    m_module.SetMin(255, 3, -2147483647 - 1);
    m_module.SetMax(255, 3, 2147483647);
    m_module.SetMin(2, 2, -99999);  // the end marker is a number that a user may choose
    m_module.SetMax(3, 0, -99999);
    m_state.pixelShift = 15;
    EXPECT_EQ(m_module.SaveModuleScaling(kEngine), 0);

    EXPECT_EQ(m_module.LoadModuleScaling("another.SCL"), ModuleLoad::Loaded);
    ExpectRange(255, 3, 0, 100);
    m_state.pixelShift = 1;
    EXPECT_EQ(m_module.LoadModuleScaling(kEngine), ModuleLoad::Loaded);
    ExpectRange(255, 3, -2147483647 - 1, 2147483647);
    ExpectRange(2, 2, -99999, 100);
    ExpectRange(3, 0, 0, -99999);
    EXPECT_EQ(m_state.pixelShift, 15);
}

TEST_F(ModuleScalingTest, ObdFilesHaveOnePairALine) {
    EXPECT_EQ(m_module.LoadModuleScaling(kObd), ModuleLoad::Loaded);
    EXPECT_TRUE(m_state.obdFile);
    EXPECT_EQ(BytesOf(kObd), NewObdFile());
    m_module.SetMax(12, 0, 6000);
    m_module.SetMax(13, 0, 250);
    EXPECT_EQ(m_module.SaveModuleScaling(kObd), 0);
    EXPECT_EQ(BytesOf(kObd), Replaced(Replaced(NewObdFile(), "\r\n12,0,100,\r\n", "\r\n12,0,6000,\r\n"),
                                      "\r\n13,0,100,\r\n", "\r\n13,0,250,\r\n"));
}

TEST_F(ModuleScalingTest, ObdFilesLeaveTheOtherFieldsAsTheyAre) {
    Store(kEngine, FileOf(3, "1,2,3,4,5,6,7,8,"));
    EXPECT_EQ(m_module.LoadModuleScaling(kEngine), ModuleLoad::Loaded);
    EXPECT_EQ(m_module.LoadModuleScaling(kObd), ModuleLoad::Loaded);
    ExpectRange(20, 0, 0, 100);
    ExpectRange(20, 1, 3, 4);
    ExpectRange(20, 3, 7, 8);
}

TEST_F(ModuleScalingTest, OnlyTheExactNameSwitchesToTheObdForm) {
    for (const char* const name : {"obd.SCL", "OBD.LBL", "OBD2.SCL", "OBD"}) {
        EXPECT_EQ(m_module.LoadModuleScaling(name), ModuleLoad::Loaded);
        EXPECT_FALSE(m_state.obdFile) << name;
    }
}

TEST_F(ModuleScalingTest, AModuleFileAfterObdKeepsTheObdForm) {
    EXPECT_EQ(m_module.LoadModuleScaling(kObd), ModuleLoad::Loaded);
    EXPECT_EQ(m_module.LoadModuleScaling(kEngine), ModuleLoad::Loaded);
    EXPECT_TRUE(m_state.obdFile);
    EXPECT_EQ(BytesOf(kEngine), NewObdFile());
    EXPECT_EQ(m_module.SaveModuleScaling(kEngine), 0);
    EXPECT_EQ(BytesOf(kEngine), NewObdFile());
}

TEST_F(ModuleScalingTest, ANineNumberFileAfterObdIsReadInPairs) {
    Store(kEngine, Replaced(NewFile(), "1,0,100,0,100,0,100,0,100,", "1,0,6000,-10,120,0,250,0,100,"));
    EXPECT_EQ(m_module.LoadModuleScaling(kObd), ModuleLoad::Loaded);
    EXPECT_EQ(m_module.LoadModuleScaling(kEngine), ModuleLoad::Loaded);
    // The first line is read as groups 1, -10 and 250.
    ExpectRange(1, 0, 0, 6000);
    ExpectRange(250, 0, 0, 100);
    ExpectRange(254, 0, 0, 100);
    EXPECT_EQ(m_module.SaveModuleScaling(kEngine), 0);
    EXPECT_EQ(BytesOf(kEngine), Replaced(NewObdFile(), "\r\n1,0,100,", "\r\n1,0,6000,"));
}

TEST_F(ModuleScalingTest, ReadInPairsALargeThirdMaximumEndsTheReading) {
    // Group 2's line is read as 2 (0,5), 0 (7,8), 255 (0,9): the last of them ends the reading.
    Store(kEngine, "3,\n1,0,6000,0,100,0,100,0,100,\n2,0,5,0,7,8,255,0,9,\n3,0,77,0,100,0,100,0,100,\n");
    m_state.obdFile = true;
    EXPECT_EQ(m_module.LoadModuleScaling(kEngine), ModuleLoad::Loaded);
    ExpectRange(2, 0, 0, 5);
    ExpectRange(255, 0, 0, 9);
    ExpectRange(3, 0, 0, 100);
}

TEST_F(ModuleScalingTest, TheGroupNumberInTheLineCounts) {
    Store(kEngine,
          "4,\n7,1,2,3,4,5,6,7,8,\n5,-1,1,-2,2,-3,3,-4,4,\n255,9,10,11,12,13,14,15,16,\n8,0,9,0,9,0,9,0,9,");
    EXPECT_EQ(m_module.LoadModuleScaling(kEngine), ModuleLoad::Loaded);
    ExpectRange(7, 0, 1, 2);
    ExpectRange(7, 3, 7, 8);
    ExpectRange(5, 3, -4, 4);
    ExpectRange(255, 0, 9, 10);  // the line that ends the reading is read too
    ExpectRange(255, 3, 15, 16);
    ExpectRange(8, 0, 0, 100);
    EXPECT_EQ(m_state.pixelShift, 4);
}

TEST_F(ModuleScalingTest, GroupsOutsideTheTableAreReadOver) {
    Store(kEngine,
          "4,\n0,9,9,9,9,9,9,9,9,\n-5,9,9,9,9,9,9,9,9,\n1,1,2,3,4,5,6,7,8,\n256,9,9,9,9,9,9,9,9,\n2,9,9,9,9,"
          "9,9,9,9,");
    EXPECT_EQ(m_module.LoadModuleScaling(kEngine), ModuleLoad::Loaded);
    ExpectRange(0, 0, 0, 100);
    ExpectRange(1, 0, 1, 2);
    ExpectRange(2, 0, 0, 100);  // 256 ended the reading
    ExpectRange(256, 0, 0, 100);
}

TEST_F(ModuleScalingTest, AFileThatEndsEarlyIsReadAsFarAsItGoes) {
    Store("full.SCL", FileOf(3, "9,9,9,9,9,9,9,9,"));
    EXPECT_EQ(m_module.LoadModuleScaling("full.SCL"), ModuleLoad::Loaded);
    Store(kEngine, "5,\n1,1,2,3,4,5,6,7,8,\n2,1,2,3,4,5");
    EXPECT_EQ(m_module.LoadModuleScaling(kEngine), ModuleLoad::Loaded);
    EXPECT_EQ(m_state.pixelShift, 5);
    ExpectRange(1, 3, 7, 8);
    ExpectRange(2, 1, 3, 4);
    ExpectRange(2, 2, 0, 100);
    ExpectRange(3, 0, 0, 100);  // and not what the module before had
}

TEST_F(ModuleScalingTest, AMinimumWithoutItsMaximumIsTakenAndEndsTheReading) {
    Store(kEngine, "5,\n1,1,2,3,");
    EXPECT_EQ(m_module.LoadModuleScaling(kEngine), ModuleLoad::Loaded);
    ExpectRange(1, 0, 1, 2);
    ExpectRange(1, 1, 3, 100);
    ExpectRange(1, 2, 0, 100);
}

TEST_F(ModuleScalingTest, AnEmptyFileChoosesNoRangeAndKeepsThePixelShift) {
    Store(kEngine, "");
    m_state.pixelShift = 6;
    EXPECT_EQ(m_module.LoadModuleScaling(kEngine), ModuleLoad::Loaded);
    EXPECT_EQ(m_state.pixelShift, 6);
    ExpectRange(1, 0, 0, 100);
    EXPECT_EQ(BytesOf(kEngine), "");
}

TEST_F(ModuleScalingTest, ThePixelShiftIsClampedOnLoading) {
    constexpr struct {
        const char* text;
        int pixelShift;
    } kCases[] = {{"1", 1},   {"15", 15},          {"0", 1}, {"-4", 1},
                  {"16", 15}, {"99999999999", 15}, {"x", 1}, {"-99999", 1}};
    for (const auto& [text, pixelShift] : kCases) {
        Store(kEngine, std::string(text) + ",\n255,0,1,0,1,0,1,0,1,\n");
        m_module.ForgetLoadedName();
        EXPECT_EQ(m_module.LoadModuleScaling(kEngine), ModuleLoad::Loaded);
        EXPECT_EQ(m_state.pixelShift, pixelShift) << text;
    }
}

TEST_F(ModuleScalingTest, NumbersConvertAsTheirPrefixAndSaturate) {
    Store(kEngine, "3,\n1,abc,12x,-99999999999,99999999999,,7, 5,\n6,\n255,0,1,0,1,0,1,0,1,\n");
    EXPECT_EQ(m_module.LoadModuleScaling(kEngine), ModuleLoad::Loaded);
    ExpectRange(1, 0, 0, 12);
    ExpectRange(1, 1, -2147483647 - 1, 2147483647);
    ExpectRange(1, 2, 0, 7);
    ExpectRange(1, 3, 5, 6);
}

TEST_F(ModuleScalingTest, AFileWithoutALastGroupEndsTheReading) {
    std::string text = "3,\n";
    for (int i = 0; i < 100000; ++i) text += "1,0," + std::to_string(i) + ",0,1,0,1,0,1,\n";
    Store(kEngine, text);
    EXPECT_EQ(m_module.LoadModuleScaling(kEngine), ModuleLoad::Loaded);
    EXPECT_LT(m_module.RangeOf(1, 0).max, 2000);
}

TEST_F(ModuleScalingTest, OnlyGroups1To255AndFields0To3HaveARange) {
    EXPECT_EQ(m_module.LoadModuleScaling(kEngine), ModuleLoad::Loaded);
    constexpr int kExtreme = 2147483647;
    for (const auto& [group, field] : {std::pair{0, 0},
                                       {-1, 0},
                                       {256, 0},
                                       {999, 0},
                                       {-99, 3},
                                       {1, 4},
                                       {1, 9},
                                       {1, -1},
                                       {kExtreme, kExtreme},
                                       {-kExtreme - 1, -kExtreme - 1}}) {
        m_module.SetMin(group, field, 50);
        m_module.SetMax(group, field, 60);
        ExpectRange(group, field, 0, 100);
    }
    EXPECT_EQ(m_module.SaveModuleScaling(kEngine), 0);
    EXPECT_EQ(BytesOf(kEngine), NewFile());
}

TEST_F(ModuleScalingTest, AFileThatCanBeNeitherReadNorCreatedFails) {
    Store(kEngine, FileOf(3, "1,2,3,4,5,6,7,8,"));
    EXPECT_EQ(m_module.LoadModuleScaling(kEngine), ModuleLoad::Loaded);
    std::filesystem::create_directory(m_scaling / "folder.SCL");
    m_state.pixelShift = 9;
    EXPECT_EQ(m_module.LoadModuleScaling("folder.SCL"), ModuleLoad::Failed);
    EXPECT_FALSE(m_module.IsLoadedWhole());
    ExpectRange(1, 0, 1, 2);  // kept
    EXPECT_EQ(m_state.pixelShift, 9);
    // Its name still counts as loaded, and the program does not try again until the loop starts again.
    EXPECT_EQ(m_module.LoadedName(), "folder.SCL");
    EXPECT_EQ(m_module.LoadModuleScaling("folder.SCL"), ModuleLoad::AlreadyLoaded);
    EXPECT_FALSE(m_module.IsLoadedWhole());
    m_module.ForgetLoadedName();
    EXPECT_EQ(m_module.LoadModuleScaling("folder.SCL"), ModuleLoad::Failed);
    EXPECT_EQ(m_module.LoadModuleScaling(kEngine), ModuleLoad::Loaded);
    EXPECT_EQ(m_module.LoadModuleScaling("../unsafe.SCL"), ModuleLoad::Failed);
    EXPECT_FALSE(m_module.IsLoadedWhole());
}

#ifdef _WIN32
// Only Windows lets a program keep a file to itself.
TEST_F(ModuleScalingTest, AFileThatCannotBeOpenedNowIsNotReplacedByANewOne) {
    const std::string chosen = FileOf(3, "1,2,3,4,5,6,7,8,");
    Store(kEngine, chosen);
    std::FILE* const held = _wfsopen((m_scaling / kEngine).c_str(), L"rb", _SH_DENYRW);
    ASSERT_TRUE(held);
    EXPECT_EQ(m_module.LoadModuleScaling(kEngine), ModuleLoad::Failed);
    std::fclose(held);
    EXPECT_EQ(BytesOf(kEngine), chosen);
}
#endif

TEST_F(ModuleScalingTest, FailsWhereTheScalingFolderCannotBeMade) {
    test::WriteBytes(m_scaling, "a file in the folder's place");
    EXPECT_EQ(m_module.LoadModuleScaling(kEngine), ModuleLoad::Failed);
    EXPECT_EQ(m_defaults.LastIndex(), 9);  // the built-in table is used instead
    ExpectRange(1, 0, 0, 100);
}

TEST_F(ModuleScalingTest, UnsafeNamesFailAndTouchNoFile) {
    for (const char* const name : {"", "..\\out.SCL", "../out.SCL", "CON.SCL", "nul.SCL", "COM1.SCL",
                                   "a:b.SCL", "a.", "a\n.SCL", "a*.SCL"}) {
        m_module.ForgetLoadedName();
        EXPECT_EQ(m_module.LoadModuleScaling(name), ModuleLoad::Failed) << name;
        EXPECT_FALSE(m_module.IsLoadedWhole()) << name;
        EXPECT_EQ(m_module.SaveModuleScaling(name), -1) << name;
    }
    const auto files = std::filesystem::recursive_directory_iterator(m_folder.Path());
    EXPECT_EQ(std::distance(begin(files), end(files)), 2);  // the Scaling folder and Defaults.cfg
}

TEST_F(ModuleScalingTest, NamesAreTakenAsWindows1252) {
    EXPECT_EQ(m_module.LoadModuleScaling("M\xFCller.SCL"), ModuleLoad::Loaded);
    EXPECT_EQ(test::BytesOf(m_scaling / std::filesystem::path(u"M\u00FCller.SCL")), NewFile());
}

TEST_F(ModuleScalingTest, TheFolderMayHaveANameThatIsNotLatin) {
    const std::filesystem::path folder = m_folder.Path() / u"\u0413\u0430\u0440\u0430\u0436" / "Scaling";
    DefaultScaling defaults(folder);
    ModuleScaling module(folder, defaults, m_state);
    EXPECT_EQ(module.LoadModuleScaling(kEngine), ModuleLoad::Loaded);
    EXPECT_EQ(module.SaveModuleScaling(kEngine), 0);
    EXPECT_EQ(test::BytesOf(folder / kEngine), NewFile());
}

TEST_F(ModuleScalingTest, SavingFailsOnAProtectedFileAndKeepsIt) {
    EXPECT_EQ(m_module.LoadModuleScaling(kEngine), ModuleLoad::Loaded);
    m_module.SetMax(1, 0, 6000);
    std::filesystem::permissions(m_scaling / kEngine, std::filesystem::perms::owner_read);
    EXPECT_EQ(m_module.SaveModuleScaling(kEngine), -1);
    EXPECT_EQ(BytesOf(kEngine), NewFile());
    std::filesystem::permissions(m_scaling / kEngine, std::filesystem::perms::owner_all);
}

TEST_F(ModuleScalingTest, SavingFailsWithoutTheFolder) {
    EXPECT_EQ(m_module.LoadModuleScaling(kEngine), ModuleLoad::Loaded);
    std::filesystem::remove_all(m_scaling);
    EXPECT_EQ(m_module.SaveModuleScaling(kEngine), -1);
    EXPECT_FALSE(std::filesystem::exists(m_scaling));
}

}  // namespace
}  // namespace plotvane
