#pragma once

#include <string>
#include <string_view>

#include "tools/drives/Drive.h"

namespace plotvane {

// Logs as the host writes them, made from a drive: text in Windows-1252 with '\n' for the line ends. The
// forms are described column by column in docs/file-formats-logs.md.

// The part of the drive that a log holds.
struct LogSpan {
    double from = 0;  // seconds of the drive; the log's own time begins at 0
    double to = 0;
    double gapFrom = 0;  // the host logged nothing between these two; equal: no gap
    double gapTo = 0;
};

// Measuring groups of four fields, each group with a time. Holds the first `rows` of the drive's three
// groups; the other cells say "none".
std::string ClassicLog(const Drive& drive, const LogSpan& span, int rows);

// The first row is a group of ten raw bytes; rows B and C are those of the drive.
std::string TenChannelLog(const Drive& drive, const LogSpan& span);

// Advanced measuring blocks: six fields of the drive, each with its own group and time.
std::string AdvancedLog(const Drive& drive, const LogSpan& span);

// The first four generic OBD identifiers that the drive has, or fewer. The head has six lines.
std::string ObdLog(const Drive& drive, const LogSpan& span);

}  // namespace plotvane
