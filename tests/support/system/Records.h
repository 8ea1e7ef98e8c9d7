#pragma once

#include <string>

#include "tests/support/DegreeSign.h"
#include "tests/support/system/PipeHost.h"

namespace plotvane::test {

// An engine at idle, then pulling away: group 1 with its four fields. The real host sends a blank before
// "km/h" too.
inline const std::string kFirstRecord = RecordOf(
    "038 906 019 FT", "G001,F0,780,/min,G001,F1,90.0," DEGREES_C ",G001,F2,50, km/h,G001,F3,4.2,l/h,");
inline const std::string kSecondRecord = RecordOf(
    "038 906 019 FT", "G001,F0,1780,/min,G001,F1,91.0," DEGREES_C ",G001,F2,51, km/h,G001,F3,5.2,l/h,");
// No field is within reach after the identifier, so a reader must show nothing of this record.
inline const std::string kMalformedRecord = "038 906 019 FT," + std::string(60, 'x');

// The scaling file of that module, and the title of the window while it plots the module.
constexpr const char* kScalingFile = "038-906-019-FT.SCL";
constexpr const wchar_t* kLiveTitle = L"Plotvane  -  Live Data  -  038 906 019 FT";

// The content of that file; `firstGroup` is the text after "1," in the line of group 1.
inline std::string ScalingBytes(int pixelShift, const std::string& firstGroup) {
    std::string bytes = std::to_string(pixelShift) + ",\r\n1," + firstGroup + "\r\n";
    for (int group = 2; group <= 255; ++group) {
        bytes += std::to_string(group) + ",0,100,0,100,0,100,0,100,\r\n";
    }
    return bytes;
}
constexpr const char* kUntouchedRanges = "0,100,0,100,0,100,0,100,";
// The default ranges of the units in the records above.
constexpr const char* kUnitRanges = "0,6000,-10,120,0,250,0,100,";

}  // namespace plotvane::test
