#pragma once

#include <string>
#include <string_view>

#include "tools/Drive.h"

namespace plotvane {

enum class RecordForm {
    Normal,  // three groups of four fields
    Obd,     // ten raw bytes as "GZER" fields, the other eight slots empty
    ObdPid   // the normal form with generic OBD identifiers in place of groups: the first four that have one
};

// The drive at a time, as a record of that form. Its text always fits one block if the identifier has at most
// 100 characters. The identifier is not used for OBD identifiers: their module is always "OBD".
std::string RecordOf(const Drive& drive, double seconds, RecordForm form, std::string_view identifier);

}  // namespace plotvane
