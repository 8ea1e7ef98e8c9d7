#pragma once

#include <string_view>

#include "tests/support/DegreeSign.h"

// Small logs of each form, with line ends as '\n'; the host writes CR LF.
namespace plotvane::test {

#define FIRST_LINE "Friday,20,November,2026,10:15:30\n"
// Groups 1 and 3, no third group.
inline constexpr std::string_view kClassicHeader = FIRST_LINE
    "038 906 019 FT,Engine control\n"
    "\n"
    ",Row A,'001,,,,Row B,'003,,,,Row C,none\n"
    ",,Speed,Coolant,Flow,Lambda,,Speed,Mass,Mass,Duty,,,,,\n"
    ",,actual,temp.,,bank 1,,actual,spec.,actual,EGR,,,,,\n"
    "mark,time, /min," DEGREES_C ", l/h,,time, /min, mg/str, mg/str, %,time,,,,\n";
inline constexpr std::string_view kClassicRows =
    "0,0.00,780,90.0,0.9,1.02,0.12,780,240.5,238.0,12.5,,,,,\n"
    "1,0.50,1240,90.0,4.2,0.98,0.62,1240,310.0,305.5,40.1,,,,,\n"
    "2,3.50,n/a,91.8,6.5,1.00,3.62,2110,322.5,320.0,38.0,,,,,\n";
inline constexpr std::string_view kClassicRecords[] = {
    "038-906-019-FT,G001,F0,780,/min,G001,F1,90.0," DEGREES_C
    ",G001,F2,0.9,l/h,G001,F3,1.02,,"
    "G003,F0,780,/min,G003,F1,240.5,mg/str,G003,F2,238.0,mg/str,G003,F3,12.5,%,"
    "G000,,,,G000,,,,G000,,,,G000,,,,",
    "038-906-019-FT,G001,F0,1240,/min,G001,F1,90.0," DEGREES_C
    ",G001,F2,4.2,l/h,G001,F3,0.98,,"
    "G003,F0,1240,/min,G003,F1,310.0,mg/str,G003,F2,305.5,mg/str,G003,F3,40.1,%,"
    "G000,,,,G000,,,,G000,,,,G000,,,,",
    "038-906-019-FT,G001,F0,n/a,/min,G001,F1,91.8," DEGREES_C
    ",G001,F2,6.5,l/h,G001,F3,1.00,,"
    "G003,F0,2110,/min,G003,F1,322.5,mg/str,G003,F2,320.0,mg/str,G003,F3,38.0,%,"
    "G000,,,,G000,,,,G000,,,,G000,,,,"};

// The ten-channel group in row A.
inline constexpr std::string_view kTenChannelLog = FIRST_LINE
    "038 906 019 FT,x\n"
    "\n"
    ",Row A,'000,,,,,,,,,,Row B,'003,,,,Row C,'005\n"
    ",,,,,,,,,,,,,,,,,,,,,\n"
    ",,,,,,,,,,,,,,,,,,,,,\n"
    "mark,time,,,,,,,,,,,time,b0,b1,b2,b3,time,c0,c1,c2,c3\n"
    "0,0.00,1,2,3,4,5,6,7,8,9,10,0.3,11,12,13,14,0.6,21,22,23,24,\n";
inline constexpr std::string_view kTenChannelRecord =
    "038-906-019-FT,GZER,F0,1,,GZER,F1,2,,GZER,F2,3,,GZER,F3,4,,GZER,F4,5,,GZER,F5,6,,GZER,F6,7,,"
    "GZER,F7,8,,GZER,F8,9,,GZER,F9,10,,G003,F0,11,b0,G003,F1,12,b1,G003,F2,13,b2,G003,F3,14,b3,"
    "G005,F0,21,c0,G005,F1,22,c1,G005,F2,23,c2,G005,F3,24,c3,";

inline constexpr std::string_view kAdvancedHeader = FIRST_LINE
    "038 906 019 FT,ADVMB,\n"
    ",,G001,F0,G001,F1,G001,F3,G003,F0,G003,F2,G000,F0,G000,F0,G000,F0,G000,F0,G000,F0,G000,F0,G000,F0,\n"
    "names 1\n"
    "names 2\n"
    "names 3\n"
    "mark,time, /min,time," DEGREES_C
    ",time, km/h,time, /min,time, mg/str,time,,time,,time,,time,,time,,time,,"
    "time,,\n";
inline constexpr std::string_view kAdvancedRows =
    "0,0.00,780,0.03,90.0,0.06,0,0.09,780,0.12,240.5,,,,,,,,,,,,,,,\n"
    "1,0.50,1240,0.53,90.0,0.56,12,0.59,1240,0.62,310.0,,,,,,,,,,,,,,,\n"
    "2,3.50,2110,3.53,91.8,3.56,31,3.59,2110,3.62,322.5,,,,,,,,,,,,,,,\n";

inline constexpr std::string_view kObdHeader = FIRST_LINE
    "OBD-II,generic data\n"
    "mark,time,PID- 012,time,PID- 013,time,PID- 005,time,PID- 000\n"
    "mark,time,Engine speed (/min),time,Vehicle speed (km/h),time,Coolant (" DEGREES_C "),time,none\n";
// The same head over more lines.
inline constexpr std::string_view kLongObdHeader = FIRST_LINE
    "OBD-II,generic data\n"
    "\n"
    "PID- 012,PID- 013\n"
    "PID- 005,PID- 000\n"
    "\n"
    "Engine speed (/min)\n"
    "Vehicle speed (km/h),Coolant\n"
    "(" DEGREES_C ")\n";
inline constexpr std::string_view kObdRows =
    "0,0.00,780,0.05,0,0.10,90,,\n"
    "1,0.50,1240,0.55,12,0.60,90,,\n"
    "2,3.50,2110,3.55,31,3.60,91,,\n";

}  // namespace plotvane::test
