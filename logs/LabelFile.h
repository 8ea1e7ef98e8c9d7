#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "base/TextInput.h"
#include "logs/LabelTable.h"
#include "logs/ModuleKey.h"

namespace plotvane {

// Label files belong to the host; this program only reads them. A line names a group or a field of it:
//   007,0,Idle speed                     title of group 7
//   007,2,Coolant,temperature ; comment  name and second text of its field 2
// In the file of a part number, a line may also send modules with certain suffixes to another file:
//   REDIRECT,038-906-019-B.LBL,FT,GH

// Fills the table with the labels of a module, given its key without ".SCL". `labelsFolder` holds the files.
// The module's own file is preferred to the one of its part number; only the latter may redirect. Without a
// file the table is empty. A file that cannot be read to its end counts as missing. The watch, if any, is
// called during long reads; if it answers that the labels are no longer wanted, the table holds what was read
// until then.
void LoadLabels(const std::filesystem::path& labelsFolder, std::string_view keyStem, LabelTable& table,
                ReadWatch* watch = nullptr);

std::filesystem::path BuildLabelPath(const std::filesystem::path& labelsFolder, std::string_view keyStem,
                                     LabelForm form);

// Enters one line, without its line end, into the table. Comments, malformed lines and numbers out of range
// are ignored.
void ParseLabelLine(std::string_view line, LabelTable& table);

// Reads the next line without its line end and drops what exceeds kMaxLabelLineLength bytes. False at the end
// of the file. A last line without a line end is not used.
bool ReadLabelLine(TextInput& input, std::string& line);

constexpr std::size_t kMaxLabelLineLength = 4096;

// The file name to which a line sends the modules with this suffix (upper case, possibly empty). Nothing if
// the line is not a redirect, or not one for this suffix. An empty item in its list stands for modules
// without a suffix.
std::optional<std::string_view> RedirectTargetOf(std::string_view line, std::string_view moduleSuffix);

}  // namespace plotvane
