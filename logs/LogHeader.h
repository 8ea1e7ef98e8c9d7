#pragma once

#include <array>
#include <string>

#include "logs/LogText.h"
#include "model/FieldSlot.h"

namespace plotvane {

enum class LogForm {
    Classic,   // one to three measuring groups, each with the four fields of its chart row
    Advanced,  // advanced measuring blocks: each slot has a group and a field of its own
    Obd        // generic OBD: up to four identifiers (PIDs)
};

constexpr int kNoGroup = -1;
constexpr int kTenFieldGroup = 0;  // a chart row of ten fields, in place of a measuring group
constexpr int kPidCount = 4;

// What one of the twelve slots gets from a log.
struct LogColumn {
    int group = kNoGroup;
    int field = 0;
    std::string unit;
};

// What the lines before the first row say of a log.
struct LogHeader {
    LogForm form = LogForm::Classic;
    std::string moduleName;                                              // at most 15 characters
    std::array<int, kSlotRows> rowGroups{kNoGroup, kNoGroup, kNoGroup};  // of the classic form
    std::array<int, kPidCount> pids{};                                   // of the OBD form; below 1: not used
    std::array<LogColumn, kSlotCount> columns;
    bool tookFirstMarker = false;  // the first row's first comma was read with the header
};

// Reads the header of a log from its first character on; the text stands before the first row then. Nothing
// here detects a malformed header: what is missing stays unset, and the rows tell. Parts of a header are
// looked for beyond line ends, so a foreign one may take the whole file; the log has no rows then.
LogHeader ReadLogHeader(LogText& text);

}  // namespace plotvane
