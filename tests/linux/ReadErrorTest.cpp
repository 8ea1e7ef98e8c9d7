// A disk that fails while a file is read: a file that cannot be read to its end counts as not read.
#include "base/AtomicFile.h"
#include "base/WholeCopy.h"
#include "link/ExchangeFile.h"
#include "logs/LabelFile.h"
#include "logs/LogCheck.h"
#include "logs/LogReader.h"
#include "scaling/ModuleScaling.h"
#include "scaling/PrefsFile.h"
#include "tests/linux/support/FileFaults.h"
#include "tests/linux/support/SettingsFile.h"

namespace plotvane::test {
namespace {

TEST(ReadError, OfATextIsNotTakenForItsEnd) {
    const TempFolder folder;
    const std::string bytes(10000, 'x');
    WriteBytes(folder / "text", bytes);
    for (const std::size_t readable : {0u, 1u, 4095u, 4096u, 4097u, 9999u, 10000u, 10001u}) {
        const ReadError error(readable);
        TextInput input(folder / "text");
        std::size_t length = 0;
        while (input.Get() != TextInput::kEnd) ++length;
        EXPECT_EQ(length, std::min<std::size_t>(readable, bytes.size()));
        EXPECT_TRUE(input.HasFailed() == (readable <= bytes.size())) << readable;
        EXPECT_EQ(input.Get(), TextInput::kEnd);
    }
}

// Reads a settings file into an object that holds something else, then saves it as the program does when
// nobody asks.
class SettingsReadError : public testing::Test {
protected:
    std::filesystem::path File(const char* name) const { return m_scaling.Path() / name; }

    TempFolder m_scaling;
};

TEST_F(SettingsReadError, OfPrefsGivesTheDefaultsAndFails) {
    Prefs mine;
    mine.backColor = 0x123456;
    mine.lineColor.fill(0x654321);
    mine.fuelHistoryDepth = 7;
    ASSERT_EQ(SavePrefs(File(kPrefsFileName), mine, 700, 500), 0);
    const std::string bytes = BytesOf(File(kPrefsFileName));
    for (std::size_t readable = 0; readable <= bytes.size(); ++readable) {
        Prefs prefs = mine;
        const ReadError error(readable);
        ASSERT_FALSE(LoadPrefs(File(kPrefsFileName), prefs)) << readable;
        ASSERT_EQ(prefs.backColor, Prefs{}.backColor) << readable;
        ASSERT_EQ(prefs.lineColor, Prefs{}.lineColor) << readable;
        ASSERT_EQ(prefs.fuelHistoryDepth, Prefs{}.fuelHistoryDepth) << readable;
    }
}

TEST_F(SettingsReadError, AfterTheBytesOfPrefsThatCountDoesNotMatter) {
    WriteBytes(File(kPrefsFileName), "BackColor=12\r\n" + std::string(9000, 'x'));
    Prefs prefs;
    const ReadError error(8192);
    EXPECT_TRUE(LoadPrefs(File(kPrefsFileName), prefs));
    EXPECT_EQ(prefs.backColor, 0x12u);
}

TEST_F(SettingsReadError, OfOldPrefsTakesNoneOfTheirValues) {
    const std::string bytes = "0,1,2,3,4,5,6,7,8,9,a,b,c,d,e,0,1,";
    WriteBytes(File(kPrefsFileName), bytes);
    for (std::size_t readable = 0; readable < bytes.size(); ++readable) {
        Prefs prefs;
        prefs.showZeros = true;
        const ReadError error(readable);
        ASSERT_EQ(LoadLegacyPrefs(File(kPrefsFileName), prefs), -1) << readable;
        ASSERT_TRUE(prefs.autorun) << readable;
        ASSERT_EQ(prefs.gridColor, Prefs{}.gridColor) << readable;
        ASSERT_TRUE(prefs.showZeros) << readable;
        ASSERT_FALSE(LoadPrefs(File(kPrefsFileName), prefs)) << readable;
        ASSERT_EQ(prefs.gridColor, Prefs{}.gridColor) << readable;
    }
}

TEST_F(SettingsReadError, OfDefaultsGivesTheBuiltInTableAndLeavesTheFile) {
    const std::string bytes = "A,1,2,\r\nB,3,4,\r\n";
    WriteBytes(File("Defaults.cfg"), bytes);
    for (const auto load : {&DefaultScaling::LoadForPlotting, &DefaultScaling::LoadDefaultScaling}) {
        for (std::size_t readable = 0; readable <= bytes.size(); ++readable) {
            DefaultScaling table(m_scaling.Path());
            {
                const ReadError error(readable);
                (table.*load)();
            }
            ASSERT_EQ(table.LastIndex(), 9) << readable;
            ASSERT_EQ(table.Row(0).unit, "/min") << readable;
            ASSERT_EQ(table.SaveDefaultScaling(), -1) << readable;
            ASSERT_EQ(BytesOf(File("Defaults.cfg")), bytes) << readable;
        }
    }
}

class RangesReadError : public SettingsReadError, public testing::WithParamInterface<const char*> {
protected:
    ModuleLoad Load() { return m_ranges.LoadModuleScaling(GetParam()); }

    RunState m_state;
    DefaultScaling m_defaults{m_scaling.Path()};
    ModuleScaling m_ranges{m_scaling.Path(), m_defaults, m_state};
};

TEST_P(RangesReadError, ChangesNothingAndTheFileStays) {
    m_state.pixelShift = 9;
    ASSERT_EQ(Load(), ModuleLoad::Loaded);
    m_ranges.SetMax(200, 0, 5000);
    ASSERT_EQ(m_ranges.SaveModuleScaling(GetParam()), 0);
    const std::string bytes = BytesOf(File(GetParam()));
    m_state.pixelShift = 4;
    m_ranges.SetMax(200, 0, 77);
    m_ranges.SetMax(1, 0, 88);
    for (std::size_t readable = 0; readable + 3 < bytes.size(); readable += 11) {
        m_ranges.ForgetLoadedName();
        const ReadError error(readable);
        ASSERT_EQ(Load(), ModuleLoad::Failed) << readable;
        ASSERT_FALSE(m_ranges.IsLoadedWhole()) << readable;
        ASSERT_EQ(m_state.pixelShift, 4) << readable;
        ASSERT_EQ(m_ranges.RangeOf(200, 0).max, 77) << readable;
        ASSERT_EQ(m_ranges.RangeOf(1, 0).max, 88) << readable;
        ASSERT_EQ(BytesOf(File(GetParam())), bytes) << readable;
    }
    m_ranges.ForgetLoadedName();
    EXPECT_EQ(Load(), ModuleLoad::Loaded);
    EXPECT_EQ(m_ranges.RangeOf(200, 0).max, 5000);
}

INSTANTIATE_TEST_SUITE_P(Of, RangesReadError, testing::Values("038-906-019-FT.SCL", "OBD.SCL"),
                         [](const auto& info) { return info.index == 0 ? "Groups" : "Obd"; });

// The file is torn, and what it should hold is in the copy.
class WholeCopyReadError : public testing::Test {
protected:
    WholeCopyReadError() {
        WriteBytes(m_file, "Bac");
        WriteBytes(m_copy, m_copyBytes);
    }

    const TempFolder m_folder;
    const std::filesystem::path m_file = m_folder / "Prefs.cfg";
    const std::filesystem::path m_copy = m_folder / "Prefs.cf~";
    const std::string m_whole = "BackColor=12\r\nGridColor=34\r\n";
    const std::string m_copyBytes = m_whole + MarkOf(m_whole);
};

TEST_F(WholeCopyReadError, MakesTheFileUnreadableAndTouchesNeither) {
    for (std::size_t readable = 0; readable <= m_copyBytes.size(); ++readable) {
        const ReadError error(readable);
        ASSERT_FALSE(OpenWholeFile(m_file).IsOpen()) << readable;
        ASSERT_EQ(BytesOf(m_file), "Bac") << readable;
        ASSERT_EQ(BytesOf(m_copy), m_copyBytes) << readable;
    }
    EXPECT_TRUE(OpenWholeFile(m_file).IsOpen());
    EXPECT_EQ(BytesOf(m_file), m_whole);
}

// Readers will use the copy as soon as they can read it again, so a save must not look done.
TEST_F(WholeCopyReadError, MakesASaveFail) {
    for (const std::size_t readable : {std::size_t{0}, m_copyBytes.size()}) {
        const ReadError error(readable);
        EXPECT_FALSE(ReplaceTextFile(m_file, "new")) << readable;
        EXPECT_EQ(BytesOf(m_copy), m_copyBytes) << readable;
    }
    EXPECT_TRUE(OpenWholeFile(m_file).IsOpen());
    EXPECT_EQ(BytesOf(m_file), m_whole);
}

class LabelReadError : public testing::Test {
protected:
    std::string Title() {
        LoadLabels(m_folder.Path(), "038-906-019-FT", m_table);
        return m_table.GroupTitle(1);
    }

    TempFolder m_folder;
    LabelTable m_table;
};

TEST_F(LabelReadError, LeavesNoLabels) {
    WriteBytes(m_folder / "038-906-019.LBL", "001,0,Speed\n002,0,Load\n");
    ASSERT_EQ(Title(), "Speed");
    for (std::size_t readable = 0; readable <= 23; ++readable) {
        const ReadError error(readable);
        ASSERT_EQ(Title(), "") << readable;
    }
}

TEST_F(LabelReadError, OfTheModulesOwnFileMakesItCountAsMissing) {
    WriteBytes(m_folder / "038-906-019-FT.LBL", "001,0,Own\n" + std::string(30, ';') + "\n");
    WriteBytes(m_folder / "038-906-019.LBL", "001,0,Shared\n");
    ASSERT_EQ(Title(), "Own");
    const ReadError error(20);  // after the end of the shorter file
    EXPECT_EQ(Title(), "Shared");
}

// Lines that could not be read may send the module to another file.
TEST_F(LabelReadError, BeforeARedirectLeavesNoLabels) {
    const std::string shared = "001,0,Shared\nREDIRECT,x.LBL,FT\n";
    WriteBytes(m_folder / "038-906-019.LBL", shared);
    WriteBytes(m_folder / "x.LBL", "001,0,Theirs\n");
    ASSERT_EQ(Title(), "Theirs");
    const ReadError error(13);
    EXPECT_EQ(Title(), "");
}

constexpr std::string_view kLog =
    "Friday,20,November,2026,10:15:30\n038 906 019 "
    "FT,x\n\n,A,'001,,,,B,,,,,C,\n,,,,,,,,,,,,,,,\n,,,,,,,,,,,,,,,\n"
    "m,t,/min,V,%,A,t,,,,,t,,,,\n0,0.00,780,12,3,4,,,,,,,,,,\n1,0.50,1240,13,5,6,,,,,,,,,,\n";

// As the end of the file does. A row that could only be read in part does not count.
TEST(LogReadError, EndsTheLogAfterItsLastWholeRow) {
    const TempFolder folder;
    WriteBytes(folder / "x.csv", kLog);
    const std::size_t firstRow = kLog.find("\n0,0.00") + 1;
    const std::size_t secondRow = kLog.find("\n1,0.50") + 1;
    for (std::size_t readable = 0; readable < kLog.size(); ++readable) {
        RunState state;
        LogReader reader(state);
        SlotTable slots;
        RecordBuffer record;
        const ReadError error(readable);
        ASSERT_TRUE(reader.Open(folder / "x.csv"));
        reader.ReadLogHeader(slots);
        int rows = 0;
        LogRow row = reader.ReadLogRow(record);
        for (; row == LogRow::Complete; row = reader.ReadLogRow(record)) ++rows;
        ASSERT_EQ(row, LogRow::Ended) << readable;
        ASSERT_TRUE(state.endOfLog) << readable;
        ASSERT_EQ(rows, readable >= secondRow ? 1 : 0) << readable << " " << firstRow;
    }
}

TEST(LogReadError, InTheFirstLineMakesAFileThatCannotBeOpened) {
    const TempFolder folder;
    WriteBytes(folder / "x.csv", kLog);
    ASSERT_EQ(CheckLog(folder / "x.csv"), LogCheck::HostLog);
    for (std::size_t readable = 0; readable < 32; ++readable) {
        const ReadError error(readable);
        ASSERT_EQ(CheckLog(folder / "x.csv"), LogCheck::Unreadable) << readable;
    }
    const ReadError error(32);
    EXPECT_EQ(CheckLog(folder / "x.csv"), LogCheck::HostLog);
}

TEST(ExchangeReadError, NamesNoPipe) {
    const TempFolder folder;
    WriteBytes(folder / "MB-PIPE.TXT", "12\n");
    for (const std::size_t readable : {0u, 1u, 2u}) {
        const ReadError error(readable);
        EXPECT_EQ(ReadExchangeFile(folder / "MB-PIPE.TXT"), std::nullopt) << readable;
    }
    const ReadError error(3);
    EXPECT_EQ(ReadExchangeFile(folder / "MB-PIPE.TXT"), 12);
}

}  // namespace
}  // namespace plotvane::test
