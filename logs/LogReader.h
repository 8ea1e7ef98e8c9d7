#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "logs/LogHeader.h"
#include "logs/LogText.h"
#include "model/FieldSlot.h"
#include "model/RecordBuffer.h"
#include "model/RunState.h"

namespace plotvane {

enum class LogRow {
    Complete,  // the record is whole; it may be the last one (RunState::endOfLog)
    Ended,     // there was no further row; there is no record
    Short      // values are missing or do not fit into a record; most likely another log follows
};

// Converts the rows of a log, one at a time, into the records that the host sends live. Needs the same memory
// for a log of any length. Ended and Short set RunState::endOfLog, and so does a row that ends with the file.
// The loop clears it when it starts.
class LogReader {
public:
    // The watch, if any, is called during long lines. If it answers that the log is no longer wanted, the log
    // ends there.
    explicit LogReader(RunState& state, ReadWatch* watch = nullptr) : m_state(state), m_watch(watch) {}

    // Opens a log at its start and sets the time stamps to 0. False if it cannot be opened.
    [[nodiscard]] bool Open(const std::filesystem::path& path);
    void Close() { m_text.Close(); }

    // Call once after Open. Gives the slots their groups, fields and units, and marks generic OBD data
    // (RunState::obdFile). Always returns 1: it does not detect a malformed header, whose rows come out short
    // or odd instead. The caller has a message for other answers, which is kept on purpose.
    int ReadLogHeader(SlotTable& slots);

    // Converts the next row.
    LogRow ReadLogRow(RecordBuffer& record);

    // At most 15 characters; "OBD" for generic OBD data.
    const std::string& ModuleName() const { return m_header.moduleName; }

    // The times of the row read last, in seconds of the log, one for each chart row; 0 for a chart row
    // without a time. Only the classic form has more than the first.
    const std::array<double, kSlotRows>& Stamps() const { return m_stamps; }

private:
    std::optional<std::string_view> NextColumn();
    double ReadLogNumber();
    void SkipColumns(int count);

    void AppendName(RecordBuffer& record);
    void AppendItem(RecordBuffer& record);
    void AppendEmptyItems(RecordBuffer& record, int count);
    void AppendValue(RecordBuffer& record, int group, int field, std::string_view unit);
    void AppendTenChannels(RecordBuffer& record);

    int ReadClassicRow(RecordBuffer& record);
    int ReadAdvancedRow(RecordBuffer& record);
    int ReadObdRow(RecordBuffer& record);

    RunState& m_state;
    ReadWatch* m_watch;
    LogText m_text;
    LogHeader m_header;
    std::array<double, kSlotRows> m_stamps{};

    // Of the row being read.
    bool m_rowEnded = false;  // its line has ended: columns still asked for are missing
    int m_items = 0;          // appended to its record so far
    std::string m_item;       // a member so that its memory is reused
};

}  // namespace plotvane
