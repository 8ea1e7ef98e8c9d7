#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "logs/LogReader.h"
#include "tests/support/LogSamples.h"
#include "tests/support/Records.h"
#include "tests/support/TempFolder.h"

namespace plotvane::test {

// Reads logs written for the test.
class LogReaderFixture : public testing::Test {
protected:
    // Writes a log, opens it and reads its header.
    void Open(std::string_view header, std::string_view rows = "") {
        std::string text(header);
        text += rows;
        m_reader.Close();
        // Emptying a file and filling it again costs a visit to the disk; there are thousands here.
        std::filesystem::remove(m_folder / "x.csv");
        WriteBytes(m_folder / "x.csv", text);
        ASSERT_TRUE(m_reader.Open(m_folder / "x.csv"));
        ASSERT_EQ(m_reader.ReadLogHeader(m_slots), 1);
    }

    LogRow Next() { return m_reader.ReadLogRow(m_record); }

    // The next record, which must be there.
    std::string NextRecord() {
        EXPECT_EQ(Next(), LogRow::Complete);
        return std::string(m_record.Text());
    }

    // The remaining records of the log. m_last is then the answer that ended it.
    std::vector<std::string> Records() {
        std::vector<std::string> records;
        while ((m_last = Next()) == LogRow::Complete) {
            records.emplace_back(m_record.Text());
            if (m_state.endOfLog) break;  // as the loop does
        }
        return records;
    }

    void ExpectStamps(double a, double b, double c) {
        EXPECT_EQ(m_reader.Stamps(), (std::array<double, kSlotRows>{a, b, c}));
    }

    void ExpectSlot(int slot, int group, int field, std::string_view unit) {
        EXPECT_EQ(m_slots[slot].group, group) << slot;
        EXPECT_EQ(m_slots[slot].field, field) << slot;
        EXPECT_EQ(m_slots[slot].unit, unit) << slot;
    }

    TempFolder m_folder;
    RunState m_state;
    SlotTable m_slots;
    RecordBuffer m_record;
    LogReader m_reader{m_state};
    LogRow m_last = LogRow::Complete;
};

}  // namespace plotvane::test
