#pragma once

#include <string>
#include <string_view>

#include "tests/support/DegreeSign.h"

// Records as the host sends them and as the log reader makes them.
namespace plotvane::test {

// Empty items, this many.
inline std::string Empty(int count) {
    std::string items;
    for (; count > 0; --count) items += "G000,,,,";
    return items;
}

// A record of one group of four fields; the other slots are empty.
inline std::string EngineRecord(std::string_view module = "038 906 019 FT", std::string_view rpm = "780") {
    std::string record(module);
    record.append(",G001,F0,")
        .append(rpm)
        .append(",/min,G001,F1,90.0," DEGREES_C ",G001,F2,50, km/h,G001,F3,4.2,l/h,");
    return record + Empty(8);
}

// A record as a block of the pipe.
inline std::string BlockOf(std::string_view record) {
    std::string block(record);
    block.resize(513, '\0');
    return block;
}

}  // namespace plotvane::test
