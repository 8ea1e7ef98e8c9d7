#include "tools/samples/SampleFiles.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "logs/LabelFile.h"
#include "logs/LogCheck.h"
#include "logs/LogReader.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/TempFolder.h"
#include "tools/drives/RecordText.h"
#include "tools/drives/ScriptedDrive.h"

namespace plotvane {
namespace {

namespace fs = std::filesystem;

const fs::path kSamples = test::DataFolder("samples", PLOTVANE_SAMPLES);

std::set<std::string> FilesIn(const fs::path& folder) {
    std::set<std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file()) files.insert(entry.path().lexically_relative(folder).generic_string());
    }
    return files;
}

TEST(SampleFiles, AreWhatTheToolWrites) {
    const test::TempFolder folder;
    ASSERT_TRUE(WriteSamples(folder.Path()));
    EXPECT_EQ(FilesIn(folder.Path()), FilesIn(kSamples));
    for (const std::string& name : FilesIn(folder.Path()))
        EXPECT_TRUE(test::BytesOf(folder / name) == test::BytesOf(kSamples / name)) << name;
}

TEST(SampleFiles, AreReplacedWhenWrittenAgain) {
    const test::TempFolder folder;
    for (int time = 0; time < 2; ++time) {
        ASSERT_TRUE(WriteSamples(folder.Path()));
        for (const char* name : {"LOGS/drive.csv", "Scaling/Defaults.cfg", "Scaling/038-906-019-FT.SCL"})
            EXPECT_TRUE(test::BytesOf(folder / name) == test::BytesOf(kSamples / name)) << name;
        test::WriteBytes(folder / "LOGS/drive.csv", "other");
        test::WriteBytes(folder / "Scaling/Defaults.cfg", "V,1,2,\n");
        test::WriteBytes(folder / "Scaling/038-906-019-FT.SCL", "9,\n");
    }
}

TEST(SampleFiles, CannotBeWrittenIntoAFile) {
    const test::TempFolder folder;
    test::WriteBytes(folder / "file", "");
    EXPECT_FALSE(WriteSamples(folder / "file"));
}

// A sample log, and what the program reads from it.
struct ReadLog {
    LogReader* reader = nullptr;
    std::vector<std::string> records;
    std::vector<std::array<double, kSlotRows>> stamps;
    SlotTable slots;
    LogRow last = LogRow::Complete;
};

ReadLog Read(LogReader& reader, RunState& state, const char* name) {
    const fs::path path = kSamples / "LOGS" / name;
    EXPECT_EQ(CheckLog(path), LogCheck::HostLog) << name;
    EXPECT_TRUE(reader.Open(path)) << name;
    ReadLog log;
    log.reader = &reader;
    EXPECT_EQ(reader.ReadLogHeader(log.slots), 1);
    RecordBuffer record;
    while (!state.endOfLog && (log.last = reader.ReadLogRow(record)) == LogRow::Complete) {
        log.records.emplace_back(record.Text());
        log.stamps.push_back(reader.Stamps());
    }
    return log;
}

class SampleLogs : public testing::Test {
protected:
    ReadLog Read(const char* name) { return plotvane::Read(m_reader, m_state, name); }

    // Adds row `row` of the drive at a time of the log.
    void AddRow(RecordText& record, int row, double seconds) const {
        for (int slot = SlotOf(row, 0); slot < SlotOf(row, kSlotColumns); ++slot) {
            const DriveChannel& channel = m_drive.Channels().at(static_cast<std::size_t>(slot));
            record.AddField(channel.group, channel.field, ValueText(m_drive, slot, seconds), channel.unit);
        }
    }

    const ScriptedDrive m_drive;
    RunState m_state;
    LogReader m_reader{m_state};
};

TEST_F(SampleLogs, HoldTheWholeDrive) {
    const ReadLog log = Read("drive.csv");
    EXPECT_EQ(log.last, LogRow::Ended);
    EXPECT_EQ(m_reader.ModuleName(), "038 906 019 FT");
    ASSERT_GT(log.records.size(), 500u);
    EXPECT_EQ(log.stamps.front()[0], 0);
    EXPECT_GT(log.stamps.back()[0], m_drive.Seconds() - 0.5);
    for (std::size_t i = 0; i < log.records.size(); ++i) {
        RecordText record("038-906-019-FT");
        for (int row = 0; row < kSlotRows; ++row)
            AddRow(record, row, log.stamps[i][static_cast<std::size_t>(row)]);
        ASSERT_EQ(log.records[i], record.Text()) << i;
        if (i > 0) {
            EXPECT_GT(log.stamps[i][0], log.stamps[i - 1][0]) << i;
            EXPECT_LT(log.stamps[i][0], log.stamps[i - 1][0] + 0.5) << i;
        }
    }
}

TEST_F(SampleLogs, TwoGroupsLeaveRowCEmptyAndHaveAGap) {
    const ReadLog log = Read("two-groups.csv");
    EXPECT_EQ(log.last, LogRow::Ended);
    int gaps = 0;
    for (std::size_t i = 0; i < log.records.size(); ++i) {
        RecordText record("038-906-019-FT");
        AddRow(record, 0, log.stamps[i][0]);
        AddRow(record, 1, log.stamps[i][1]);
        for (int k = 0; k < kSlotColumns; ++k) record.AddEmptySlot();
        ASSERT_EQ(log.records[i], record.Text()) << i;
        EXPECT_EQ(log.stamps[i][2], 0);
        if (i > 0 && log.stamps[i][0] - log.stamps[i - 1][0] > 5) ++gaps;
    }
    EXPECT_EQ(gaps, 1);
}

TEST_F(SampleLogs, TenChannelsComeBeforeTwoGroups) {
    const ReadLog log = Read("ten-channels.csv");
    EXPECT_EQ(log.last, LogRow::Ended);
    ASSERT_GT(log.records.size(), 100u);
    for (std::size_t i = 0; i < log.records.size(); ++i) {
        RecordText record("038-906-019-FT");
        for (int field = 0; field < kChannelCount; ++field)
            record.AddChannel(field, std::to_string(RawByte(m_drive, field, log.stamps[i][0])));
        AddRow(record, 1, log.stamps[i][1]);
        AddRow(record, 2, log.stamps[i][2]);
        ASSERT_EQ(log.records[i], record.Text()) << i;
    }
}

TEST_F(SampleLogs, AdvancedBlocksHaveSixFieldsOfTheirOwn) {
    const ReadLog log = Read("advanced.csv");
    EXPECT_EQ(log.last, LogRow::Ended);
    ASSERT_GT(log.records.size(), 100u);
    constexpr double kFrom = 76;
    for (std::size_t i = 0; i < log.records.size(); ++i) {
        RecordText record("038-906-019-FT");
        double delay = 0;
        for (const std::size_t slot : {0U, 1U, 4U, 6U, 8U, 11U}) {
            const DriveChannel& channel = m_drive.Channels().at(slot);
            const double seconds = kFrom + log.stamps[i][0] + delay;
            record.AddField(channel.group, channel.field, ValueText(m_drive, static_cast<int>(slot), seconds),
                            channel.unit);
            delay += 0.03;
        }
        for (int k = 6; k < kSlotCount; ++k) record.AddEmptySlot();
        ASSERT_EQ(log.records[i], record.Text()) << i;
    }
}

TEST_F(SampleLogs, GenericObdHasFourIdentifiers) {
    const ReadLog log = Read("obd.csv");
    EXPECT_EQ(log.last, LogRow::Ended);
    EXPECT_TRUE(m_state.obdFile);
    ASSERT_GT(log.records.size(), 100u);
    EXPECT_TRUE(
        log.records[0].starts_with("OBD.LBL,G012,F0,960,/min,G013,F0,0,km/h,G005,F0,31.0,\xB0"
                                   "C,G017,F0,"))
        << log.records[0];
    EXPECT_TRUE(log.records[0].ends_with("G000,,,,G000,,,,G000,,,,G000,,,,G000,,,,G000,,,,G000,,,,G000,,,,"));
}

TEST_F(SampleLogs, LabelsOfTheModuleComeThroughARedirect) {
    LabelTable labels;
    LoadLabels(kSamples / "labels", "038-906-019-FT", labels);
    for (int slot = 0; slot < kSlotCount; ++slot) {
        const DriveChannel& channel = m_drive.Channels().at(static_cast<std::size_t>(slot));
        EXPECT_EQ(labels.FieldName(channel.group, channel.field + 1), channel.name);
        EXPECT_EQ(labels.FieldSecondText(channel.group, channel.field + 1), channel.detail);
        EXPECT_NE(labels.GroupTitle(channel.group), "");
    }
    LoadLabels(kSamples / "labels", "038-906-019-XY", labels);
    EXPECT_EQ(labels.FieldName(1, 1), "Engine speed");
    EXPECT_EQ(labels.FieldName(31, 1), "");
}

}  // namespace
}  // namespace plotvane
