#pragma once

#include <string>

namespace plotvane::test {

// The version of Wine that stands in for Windows, such as "8.0"; empty on Windows itself.
std::string LookAlikeVersion();

inline bool RunsUnderWine() {
    return !LookAlikeVersion().empty();
}

}  // namespace plotvane::test
