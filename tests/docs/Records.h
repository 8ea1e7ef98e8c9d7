#pragma once

#include <string>
#include <string_view>

namespace plotvane::test {

// A record as it is sent, of one that a page has spaced for the eye: without line ends, and without the
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
