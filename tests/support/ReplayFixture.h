#pragma once

#include <string>

#include "tests/support/AcquisitionFixture.h"

namespace plotvane::test {

// Three rows of groups 1 and 3, half a second and three seconds apart.
constexpr const char* kReplayedLog =
    "Friday,20,November,2026,10:15:30\n"
    "038 906 019 FT,Engine control\n"
    "\n"
    ",Row A,'001,,,,Row B,'003,,,,Row C,none\n"
    ",,Speed,Coolant,Flow,Lambda,,Speed,Mass,Mass,Duty,,,,,\n"
    ",,actual,temp.,,bank 1,,actual,spec.,actual,EGR,,,,,\n"
    "mark,time, /min,\xB0"
    "C, l/h,,time, /min, mg/str, mg/str, %,time,,,,\n"
    "0,0.00,780,90.0,0.9,1.02,0.12,780,240.5,238.0,12.5,,,,,\n"
    "1,0.50,1240,90.0,4.2,0.98,0.62,1240,310.0,305.5,40.1,,,,,\n"
    "2,3.50,n/a,91.8,6.5,1.00,3.62,2110,322.5,320.0,38.0,,,,,\n";

// A row, or a header, so long that reading it dispatches messages.
inline const std::string kLongText(1'000'000, 'x');

// This many dispatches after the third sample, the source is in the middle of a long fourth row. The first
// few of them still belong to the wait before that row.
constexpr int kInTheLongRow = 10;

// The whole acquisition without a host. The user has a log to choose.
class ReplayFixture : public AcquisitionFixture {
protected:
    ReplayFixture() { Choose("x.csv", kReplayedLog); }

    void Choose(const char* name, std::string_view text) {
        WriteBytes(folder / name, text);
        dialog.choice = folder / name;
    }
    void Load() { acquisition.control.LoadLog(); }
};

}  // namespace plotvane::test
