#include "logs/LogReader.h"

#include <algorithm>
#include <utility>

#include "base/Numbers.h"

namespace plotvane {
namespace {

constexpr std::string_view kEmptyItem = "G000,,,,";

void AppendThreeDigits(std::string& out, int number) {
    if (number < 100) out += '0';
    if (number < 10) out += '0';
    AppendDecimal(out, number);
}

}  // namespace

bool LogReader::Open(const std::filesystem::path& path) {
    m_stamps.fill(0.0);
    return m_text.Open(path, m_watch);
}

int LogReader::ReadLogHeader(SlotTable& slots) {
    m_header = plotvane::ReadLogHeader(m_text);
    if (m_header.form == LogForm::Obd) m_state.obdFile = true;
    for (int slot = 0; slot < kSlotCount; ++slot) {
        const LogColumn& column = m_header.columns.at(static_cast<std::size_t>(slot));
        slots[slot].group = column.group;
        slots[slot].field = column.field;
        slots[slot].unit = column.unit;
    }
    return 1;
}

LogRow LogReader::ReadLogRow(RecordBuffer& record) {
    record.Clear();
    m_rowEnded = false;
    m_items = 0;
    // The first column is a marker. The search for its comma does not stop at line ends, so empty lines do no
    // harm, nor does a comma at the end of the line before.
    const bool hasMarker = std::exchange(m_header.tookFirstMarker, false) || m_text.SkipPast(',');
    if (!hasMarker) {
        m_state.endOfLog = true;
        return LogRow::Ended;
    }
    AppendName(record);
    int expected = 0;
    switch (m_header.form) {
        case LogForm::Classic:
            expected = ReadClassicRow(record);
            break;
        case LogForm::Advanced:
            expected = ReadAdvancedRow(record);
            break;
        case LogForm::Obd:
            expected = ReadObdRow(record);
            break;
    }
    if (!m_text.SkipLines(1)) m_state.endOfLog = true;
    // Nobody knows what the last value of this row would have been.
    if (m_text.HasFailed()) return LogRow::Ended;
    if (m_items == expected) return LogRow::Complete;
    m_state.endOfLog = true;
    return LogRow::Short;
}

// Five columns for each chart row: time and four values. These functions return how many items a whole record
// has.
int LogReader::ReadClassicRow(RecordBuffer& record) {
    const auto& groups = m_header.rowGroups;
    int expected = 0;
    for (int row = 0; row < kSlotRows; ++row) {
        const auto index = static_cast<std::size_t>(row);
        const int group = groups.at(index);
        if (group == kNoGroup) {
            AppendEmptyItems(record, kSlotColumns);
            // Kept on purpose: one column fewer than the row has. A row B that follows steps over the
            // remaining one. A row C after a row B without a group does not, and reads its time one column
            // early.
            SkipColumns(kSlotColumns);
            expected += kSlotColumns;
            continue;
        }
        if (row == 1 && groups[0] == kNoGroup) SkipColumns(1);
        m_stamps.at(index) = ReadLogNumber();
        if (group == kTenChannelGroup) {
            AppendTenChannels(record);
            expected += kChannelCount;
            continue;
        }
        for (int field = 0; field < kSlotColumns; ++field)
            AppendValue(record, group, field,
                        m_header.columns.at(static_cast<std::size_t>(SlotOf(row, field))).unit);
        expected += kSlotColumns;
    }
    return expected;
}

// A time and a value for each slot. Only the first time counts.
int LogReader::ReadAdvancedRow(RecordBuffer& record) {
    m_stamps[0] = ReadLogNumber();
    for (int slot = 0; slot < kSlotCount; ++slot) {
        const LogColumn& column = m_header.columns.at(static_cast<std::size_t>(slot));
        if (slot > 0) SkipColumns(1);
        if (column.group >= 1) {
            AppendValue(record, column.group, column.field, column.unit);
        } else {
            AppendEmptyItems(record, 1);
            SkipColumns(1);
        }
    }
    return kSlotCount;
}

int LogReader::ReadObdRow(RecordBuffer& record) {
    m_stamps[0] = ReadLogNumber();
    for (std::size_t slot = 0; slot < m_header.pids.size(); ++slot) {
        if (slot > 0) SkipColumns(1);
        const int pid = m_header.pids.at(slot);
        if (pid >= 1) {
            AppendValue(record, pid, 0, m_header.columns.at(slot).unit);
        } else {
            AppendEmptyItems(record, 1);
            SkipColumns(1);
        }
    }
    AppendEmptyItems(record, kSlotCount - kPidCount);
    return kSlotCount;
}

// The next column of the row; nothing once the line has ended. Before a line end even an empty column is a
// value; before the end of the file only a non-empty one is.
std::optional<std::string_view> LogReader::NextColumn() {
    if (m_rowEnded) return std::nullopt;
    const auto end = m_text.ReadCell();
    m_rowEnded = end != LogText::CellEnd::Comma;
    if (end == LogText::CellEnd::File && m_text.Cell().empty()) return std::nullopt;
    return m_text.Cell();
}

// A time in seconds; 0 if the column is not a number.
double LogReader::ReadLogNumber() {
    const auto column = NextColumn();
    return column ? ParseDouble(*column) : 0.0;
}

void LogReader::SkipColumns(int count) {
    for (; count > 0; --count) NextColumn();
}

void LogReader::AppendName(RecordBuffer& record) {
    m_item = m_header.form == LogForm::Obd ? "OBD.LBL" : m_header.moduleName;
    std::ranges::replace(m_item, ' ', '-');
    m_item += ',';
    // Cannot fail: 16 characters at most, and the record is empty.
    (void)record.Append(m_item);
}

void LogReader::AppendItem(RecordBuffer& record) {
    if (record.Append(m_item)) ++m_items;
}

void LogReader::AppendEmptyItems(RecordBuffer& record, int count) {
    m_item = kEmptyItem;
    for (; count > 0; --count) AppendItem(record);
}

// "G001,F0,780,/min,"
void LogReader::AppendValue(RecordBuffer& record, int group, int field, std::string_view unit) {
    const auto value = NextColumn();
    if (!value) return;
    m_item = "G";
    AppendThreeDigits(m_item, group);
    m_item += ",F";
    AppendDecimal(m_item, field);
    m_item += ',';
    m_item += *value;
    m_item += ',';
    m_item += unit;
    m_item += ',';
    AppendItem(record);
}

// "GZER,F0,780,,"
void LogReader::AppendTenChannels(RecordBuffer& record) {
    for (int field = 0; field < kChannelCount; ++field) {
        const auto value = NextColumn();
        if (!value) return;
        m_item = "GZER,F";
        AppendDecimal(m_item, field);
        m_item += ',';
        m_item += *value;
        m_item += ",,";
        AppendItem(record);
    }
}

}  // namespace plotvane
