#pragma once

#include <string>
#include <string_view>

namespace plotvane::test {

// The record as it is sent, from a record that a page shows with spacing: removes the line ends and the
// blanks before each "G".
inline std::string Unspaced(std::string_view example) {
    std::string record;
    for (const char c : example) {
        if (c == '\n') continue;
        if (c == 'G' && record.ends_with(", ")) record.pop_back();
        record += c;
    }
    return record;
}

}  // namespace plotvane::test
