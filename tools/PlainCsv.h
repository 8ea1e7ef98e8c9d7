#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "tools/CsvDrive.h"

namespace plotvane {

struct PlainCsvResult {
    std::unique_ptr<Drive> drive;      // null if the file holds none
    std::string error;                 // why
    std::vector<std::string> ignored;  // names of the columns that found no place among the twelve slots
    int droppedRows = 0;               // rows with a time that is no number, or goes back
};

// Reads a plain CSV drive: a line of column names (see CsvColumns.h), then lines of numbers. A cell that is
// missing or no number keeps the value before it. Takes up to 200,000 lines of up to 64 columns; what a
// line has beyond 4096 characters is dropped.
PlainCsvResult LoadPlainCsv(const std::filesystem::path& path);

}  // namespace plotvane
