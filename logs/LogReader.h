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
    Complete,  // the record is whole; it may have been the last one (RunState::endOfLog)
    Ended,     // there is no further row, and no record
    Short      // the row lacks values, or they do not fit into a record: most likely another log follows
};

// Turns the rows of a log of the host's, one at a time, into the records that the host sends live. Needs the
// same memory for a log of any length. Ended and Short set RunState::endOfLog, and so does the row with which
// the file ends; the loop clears it at its start.
class LogReader {
public:
    // The watch, if any, is asked in the midst of long lines. Where it answers that the log is no longer
    // wanted, that is the end of the log.
    explicit LogReader(RunState& state, ReadWatch* watch = nullptr) : m_state(state), m_watch(watch) {}

    // Opens a log at its start; the time stamps are 0 then. False if it cannot be opened.
    [[nodiscard]] bool Open(const std::filesystem::path& path);
    void Close() { m_text.Close(); }

    // To be called once behind Open. Gives the slots their groups, fields and units, and marks generic OBD
    // data (RunState::obdFile). 1 always: it does not detect a malformed header, whose rows come out short or
    // odd instead. The answer is there for the caller's message, which is kept.
    int ReadLogHeader(SlotTable& slots);

    // Converts the next row.
    LogRow ReadLogRow(RecordBuffer& record);

    // At most 15 characters; "OBD" for generic OBD data.
    const std::string& ModuleName() const { return m_header.moduleName; }

    // The times of the row that was read last, in seconds of the log, one a chart row; 0 for a row without
    // a time. Only the classic form has more than the first.
    const std::array<double, kSlotRows>& Stamps() const { return m_stamps; }

private:
    std::optional<std::string_view> NextColumn();
    double ReadLogNumber();
    void SkipColumns(int count);

    void AppendName(RecordBuffer& record);
    void AppendItem(RecordBuffer& record);
    void AppendEmptyItems(RecordBuffer& record, int count);
    void AppendValue(RecordBuffer& record, int group, int field, std::string_view unit);
    void AppendTenFields(RecordBuffer& record);

    int ReadClassicRow(RecordBuffer& record);
    int ReadAdvancedRow(RecordBuffer& record);
    int ReadObdRow(RecordBuffer& record);

    RunState& m_state;
    ReadWatch* m_watch;
    LogText m_text;
    LogHeader m_header;
    std::array<double, kSlotRows> m_stamps{};

    // Of the row being read.
    bool m_rowEnded = false;  // its line is over: what is still asked for is missing
    int m_items = 0;          // appended to its record
    std::string m_item;       // kept for its memory
};

}  // namespace plotvane
