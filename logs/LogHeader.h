#pragma once

#include <array>
#include <string>

#include "logs/LogText.h"
#include "model/FieldSlot.h"

namespace plotvane {

enum class LogForm {
    Classic,   // one to three measuring groups, each with four fields in its own chart row
    Advanced,  // advanced measuring blocks: each slot has a group and a field of its own
    Obd        // generic OBD: up to four identifiers (PIDs)
};

constexpr int kNoGroup = -1;
constexpr int kTenChannelGroup = 0;  // stands for a chart row of ten channels instead of a measuring group
constexpr int kPidCount = 4;

// What a log says about one of the twelve slots.
struct LogColumn {
    int group = kNoGroup;
    int field = 0;
    std::string unit;
};

// What the lines before the first row say about a log.
struct LogHeader {
    LogForm form = LogForm::Classic;
    std::string moduleName;                                              // at most 15 characters
    std::array<int, kSlotRows> rowGroups{kNoGroup, kNoGroup, kNoGroup};  // of the classic form
    std::array<int, kPidCount> pids{};                                   // of the OBD form; below 1: unused
    std::array<LogColumn, kSlotCount> columns;
    bool tookFirstMarker = false;  // the header's reader has taken the first comma of the first row
};

// Reads the header of a log from its first character, and leaves the text before the first row. It does not
// detect a malformed header: what is missing stays unset, and the rows come out short or odd. The search for
// some parts does not stop at line ends, so a foreign file may be read to its end; it then has no rows.
LogHeader ReadLogHeader(LogText& text);

}  // namespace plotvane
