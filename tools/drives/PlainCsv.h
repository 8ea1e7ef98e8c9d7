#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "tools/drives/CsvDrive.h"

namespace plotvane {

struct PlainCsvResult {
    std::unique_ptr<Drive> drive;      // null if the file holds no drive
    std::string error;                 // the reason why there is no drive
    std::vector<std::string> ignored;  // names of the columns for which the twelve slots had no place
    int droppedRows = 0;               // rows in which a time is not a number or goes back
};

// Reads a plain CSV drive: a line of column names (see CsvColumns.h), then lines of numbers. A cell that is
// missing or not a number keeps the value before it. Takes up to 200,000 lines of up to 64 columns; drops
// everything after the first 4096 characters of a line.
PlainCsvResult LoadPlainCsv(const std::filesystem::path& path);

}  // namespace plotvane
