// Each form has its cells in the columns that docs/file-formats-logs.md gives. Columns count from 0, lines
// from 1.
#include "tools/samples/SampleLogs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace plotvane {
namespace {

using Cells = std::vector<std::string>;

std::vector<std::string> Split(std::string_view text, char separator) {
    std::vector<std::string> parts(1);
    for (const char c : text) {
        if (c == separator)
            parts.emplace_back();
        else
            parts.back() += c;
    }
    return parts;
}

// A log, line by line and cell by cell.
class Log {
public:
    explicit Log(std::string_view text) {
        EXPECT_TRUE(text.ends_with('\n'));
        text.remove_suffix(1);
        for (const std::string& line : Split(text, '\n')) m_lines.push_back(Split(line, ','));
    }

    Cells Line(std::size_t number) const { return number <= m_lines.size() ? m_lines[number - 1] : Cells{}; }
    std::vector<Cells> RowsFrom(std::size_t number) const {
        return {m_lines.begin() + static_cast<std::ptrdiff_t>(std::min(number - 1, m_lines.size())),
                m_lines.end()};
    }

private:
    std::vector<Cells> m_lines;
};

std::string At(const Cells& cells, std::size_t column) {
    return column < cells.size() ? cells[column] : "no such column";
}

double Number(const std::string& cell) {
    return std::strtod(cell.c_str(), nullptr);
}

// Groups 1, 3 and 31. The value of a slot tells the slot and the hundredths of a second.
class TellingDrive final : public Drive {
public:
    TellingDrive() {
        constexpr int kGroups[] = {1, 3, 31};
        for (int slot = 0; slot < kSlotCount; ++slot) {
            DriveChannel& channel = channels.at(static_cast<std::size_t>(slot));
            channel.group = kGroups[slot / kSlotColumns];
            channel.field = slot % kSlotColumns;
            channel.name = "name" + std::to_string(slot);
            channel.detail = "detail" + std::to_string(slot);
            channel.unit = slot == 5 ? "" : "u" + std::to_string(slot);
            // A raw byte is ten for each slot, and one for each second.
            channel.lowest = Value(slot, -10.0 * slot);
            channel.highest = Value(slot, 255 - 10.0 * slot);
        }
    }

    const DriveChannels& Channels() const override { return channels; }
    double Seconds() const override { return 60; }
    double Value(int slot, double seconds) const override { return 100'000 * (slot + 1) + 100 * seconds; }
    std::string_view Phase(double) const override { return ""; }

    DriveChannels channels;
};

constexpr LogSpan kSpan{.from = 20, .to = 50};

class SampleLogsTest : public testing::Test {
protected:
    std::string Value(int slot, const std::string& time) const {
        return std::to_string(std::lround(drive.Value(slot, kSpan.from + Number(time))));
    }
    static std::string Unit(int slot) { return slot == 5 ? "" : " u" + std::to_string(slot); }

    void ExpectFirstLines(const Log& log, const char* name) const {
        EXPECT_EQ(At(log.Line(1), 4), "10:15:30");
        EXPECT_EQ(At(log.Line(2), 0), name);
    }
    // A time, then the four values of a chart row.
    void ExpectGroup(const Cells& row, std::size_t timeColumn, int chartRow) const {
        for (int field = 0; field < kSlotColumns; ++field)
            EXPECT_EQ(At(row, timeColumn + 1 + static_cast<std::size_t>(field)),
                      Value(SlotOf(chartRow, field), At(row, timeColumn)));
    }
    static void ExpectUnits(const Cells& line, std::size_t column, int chartRow) {
        for (int field = 0; field < kSlotColumns; ++field)
            EXPECT_EQ(At(line, column + static_cast<std::size_t>(field)), Unit(SlotOf(chartRow, field)));
    }

    TellingDrive drive;
};

TEST_F(SampleLogsTest, AClassicRowHasFiveColumnsForEachGroup) {
    const Log log(ClassicLog(drive, kSpan, 3));
    ExpectFirstLines(log, "038 906 019 FT");
    EXPECT_EQ(At(log.Line(4), 2), "'001");
    EXPECT_EQ(At(log.Line(4), 7), "'003");
    EXPECT_EQ(At(log.Line(4), 12), "'031");
    EXPECT_EQ(log.Line(4).size(), 13u) << "the line ends with the cell of row C";
    EXPECT_EQ(log.Line(5).size(), 16u) << "the line has 15 commas";
    EXPECT_EQ(log.Line(6).size(), 16u) << "the line has 15 commas";
    EXPECT_EQ(At(log.Line(5), 2), "name0");
    EXPECT_EQ(At(log.Line(6), 15), "detail11");
    ExpectUnits(log.Line(7), 2, 0);
    ExpectUnits(log.Line(7), 7, 1);
    ExpectUnits(log.Line(7), 12, 2);
    ASSERT_GT(log.RowsFrom(8).size(), 50u);
    for (const Cells& row : log.RowsFrom(8)) {
        ExpectGroup(row, 1, 0);
        ExpectGroup(row, 6, 1);
        ExpectGroup(row, 11, 2);
    }
}

TEST_F(SampleLogsTest, AClassicLogOfTwoGroupsNamesNoThirdAndLeavesItsColumnsEmpty) {
    const Log log(ClassicLog(drive, kSpan, 2));
    EXPECT_EQ(At(log.Line(4), 7), "'003");
    EXPECT_EQ(At(log.Line(4), 12), "none");
    EXPECT_EQ(log.Line(4).size(), 13u);
    EXPECT_EQ(log.Line(5).size(), 16u);
    EXPECT_EQ(log.Line(6).size(), 16u);
    ASSERT_FALSE(log.RowsFrom(8).empty());
    for (const Cells& row : log.RowsFrom(8)) {
        ExpectGroup(row, 6, 1);
        for (std::size_t column = 11; column <= 15; ++column) EXPECT_EQ(At(row, column), "") << column;
    }
}

TEST_F(SampleLogsTest, ARowWithTenChannelsHasThemBeforeTheTwoGroups) {
    const Log log(TenChannelLog(drive, kSpan));
    ExpectFirstLines(log, "038 906 019 FT");
    EXPECT_EQ(At(log.Line(4), 2), "'000");
    EXPECT_EQ(At(log.Line(4), 13), "'003");
    EXPECT_EQ(At(log.Line(4), 18), "'031");
    EXPECT_EQ(log.Line(5).size(), 22u) << "the line has 21 commas";
    EXPECT_EQ(log.Line(6).size(), 22u) << "the line has 21 commas";
    for (std::size_t column = 2; column <= 11; ++column) EXPECT_EQ(At(log.Line(7), column), "") << column;
    ExpectUnits(log.Line(7), 13, 1);
    ExpectUnits(log.Line(7), 18, 2);
    ASSERT_GT(log.RowsFrom(8).size(), 50u);
    for (const Cells& row : log.RowsFrom(8)) {
        const double seconds = kSpan.from + Number(At(row, 1));
        for (int channel = 0; channel < kChannelCount; ++channel)
            EXPECT_NEAR(Number(At(row, 2 + static_cast<std::size_t>(channel))), seconds + 10 * channel, 0.51);
        ExpectGroup(row, 12, 1);
        ExpectGroup(row, 17, 2);
    }
}

TEST_F(SampleLogsTest, AnAdvancedRowHasTwoColumnsForEachField) {
    const Log log(AdvancedLog(drive, kSpan));
    ExpectFirstLines(log, "038 906 019 FT");
    EXPECT_EQ(At(log.Line(2), 1), "ADVMB");
    const std::vector<int> slots = {0, 1, 4, 6, 8, 11};
    const std::vector<std::string> groups = {"G001", "G001", "G003", "G003", "G031", "G031"};
    for (std::size_t k = 0; k < kSlotCount; ++k) {
        const bool isUsed = k < slots.size();
        EXPECT_EQ(At(log.Line(3), 2 + 2 * k), isUsed ? groups[k] : "G000");
        EXPECT_EQ(At(log.Line(3), 3 + 2 * k), isUsed ? "F" + std::to_string(slots[k] % 4) : "F0");
        EXPECT_EQ(At(log.Line(7), 2 + 2 * k), isUsed ? Unit(slots[k]) : "");
    }
    ASSERT_GT(log.RowsFrom(8).size(), 50u);
    for (const Cells& row : log.RowsFrom(8)) {
        for (std::size_t k = 0; k < kSlotCount; ++k)
            EXPECT_EQ(At(row, 2 + 2 * k), k < slots.size() ? Value(slots[k], At(row, 1 + 2 * k)) : "") << k;
    }
}

TEST_F(SampleLogsTest, AnObdRowHasTheFirstFourIdentifiersOfTheDrive) {
    const std::vector<std::size_t> slots = {1, 3, 5, 6};
    for (const std::size_t slot : slots) drive.channels[slot].pid = static_cast<int>(10 + slot);
    drive.channels[9].pid = 100;
    const Log log(ObdLog(drive, kSpan));
    ExpectFirstLines(log, "OBD-II");
    for (std::size_t k = 0; k < slots.size(); ++k) {
        EXPECT_EQ(At(log.Line(4), 2 + 2 * k), "PID- 0" + std::to_string(10 + slots[k]));
        EXPECT_EQ(At(log.Line(6), 2 + 2 * k), "(" + drive.channels[slots[k]].unit + ")");
    }
    ASSERT_GT(log.RowsFrom(7).size(), 50u);
    for (const Cells& row : log.RowsFrom(7)) {
        for (std::size_t k = 0; k < slots.size(); ++k)
            EXPECT_EQ(At(row, 2 + 2 * k), Value(static_cast<int>(slots[k]), At(row, 1 + 2 * k))) << k;
    }
}

TEST_F(SampleLogsTest, AnObdLogNamesIdentifier0WhereTheDriveHasNone) {
    drive.channels[2].pid = 5;
    const Log log(ObdLog(drive, kSpan));
    EXPECT_EQ(At(log.Line(4), 2), "PID- 005");
    for (std::size_t k = 1; k < 4; ++k) {
        EXPECT_EQ(At(log.Line(4), 2 + 2 * k), "PID- 000");
        EXPECT_EQ(At(log.Line(6), 2 + 2 * k), "") << "an unused identifier has no unit";
        for (const Cells& row : log.RowsFrom(7)) EXPECT_EQ(At(row, 2 + 2 * k), "");
    }
}

TEST_F(SampleLogsTest, RowsGoFromTheBeginningOfTheSpanToItsEndButNotThroughTheGap) {
    const LogSpan span{.from = 20, .to = 50, .gapFrom = 30, .gapTo = 40};
    double last = -0.4;
    int gaps = 0;
    int number = 0;
    for (const Cells& row : Log(ClassicLog(drive, span, 1)).RowsFrom(8)) {
        EXPECT_EQ(At(row, 0), std::to_string(number++));
        const double time = Number(At(row, 1));
        EXPECT_TRUE(time < 10 || time >= 20) << time;
        if (time - last > 5)
            ++gaps;
        else
            EXPECT_NEAR(time - last, 0.4, 0.071) << time;
        last = time;
    }
    EXPECT_EQ(gaps, 1);
    EXPECT_GT(last, 29.5);
    EXPECT_LE(last, 30.0);
}

}  // namespace
}  // namespace plotvane
