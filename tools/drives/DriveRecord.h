#pragma once

#include <string>
#include <string_view>

#include "tools/drives/Drive.h"

namespace plotvane {

enum class RecordForm {
    Normal,       // three groups of four fields
    TenChannels,  // ten raw bytes as "GZER" items; the eight slots after them are empty
    ObdPid        // the normal form with generic OBD identifiers in place of groups: the first four channels
                  // that have one
};

// A moment of the drive as a record of that form. The text always fits one block if the identifier has at
// most 100 characters. ObdPid ignores the identifier: the module of such a record is always "OBD".
std::string RecordOf(const Drive& drive, double seconds, RecordForm form, std::string_view identifier);

}  // namespace plotvane
