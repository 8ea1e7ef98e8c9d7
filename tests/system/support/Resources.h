#pragma once

#include <windows.h>

#include <cstddef>
#include <string>

namespace plotvane::test {

// What a process holds of the system at one moment.
struct Resources {
    std::size_t privateKilobytes = 0;
    int gdiObjects = 0;
    int userObjects = 0;  // under Wine, which does not say: the windows among them, shown or hidden
    int handles = 0;
};

// At rest: the smallest figures of several looks, because one may fall into the midst of a repaint, which
// holds some objects more for a moment.
Resources ResourcesOf(DWORD processId);

// By how much a program that runs on evenly may have grown.
struct GrowthAllowance {
    std::size_t privateKilobytes;
    int gdiObjects;
    int userObjects;
    int handles;
};

// What has grown beyond the allowance, in words; empty if nothing has.
std::string GrownBeyond(const Resources& before, const Resources& after, const GrowthAllowance& allowed);

}  // namespace plotvane::test
