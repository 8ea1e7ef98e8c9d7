#pragma once

#include <windows.h>

#include <cstddef>
#include <string>

namespace plotvane::test {

// The system resources that a process holds at one moment.
struct Resources {
    std::size_t privateKilobytes = 0;
    int gdiObjects = 0;
    int userObjects = 0;  // under Wine, which does not report them: the windows among them, shown or hidden
    int handles = 0;
};

// The resources of a process at rest: the smallest figures of several looks, because a repaint holds some
// more objects for a moment.
Resources ResourcesOf(DWORD processId);

// How much a program in steady use may have grown.
struct GrowthAllowance {
    std::size_t privateKilobytes;
    int gdiObjects;
    int userObjects;
    int handles;
};

// The same for a program that has recorded this many samples of the drive in that time: the recording takes
// a piece of memory for each 2048 of them.
GrowthAllowance WithRecording(GrowthAllowance allowed, int samples);

// Says what has grown beyond the allowance; empty if nothing has.
std::string GrownBeyond(const Resources& before, const Resources& after, const GrowthAllowance& allowed);

}  // namespace plotvane::test
