#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "tools/drives/Drive.h"

namespace plotvane {

// The columns of a plain CSV drive that make up its rows A, B and C, chosen by the names in its first line:
//   t,rpm,speed_kmh,coolant_c            one time column: the channels follow in groups of four
//   t_a,rpm,load_pct,t_b,lambda_meas     several: each begins a group of up to four channels
struct CsvColumns {
    struct Group {
        std::size_t timeColumn = 0;
        std::vector<std::size_t> columns;  // one to four
    };
    std::vector<Group> groups;         // up to three
    DriveChannels channels;            // filled group by group, row by row; the value range is not known yet
    std::vector<std::string> ignored;  // names of the columns without a place in a group
};

CsvColumns ArrangeColumns(const std::vector<std::string>& names);

// The unit at the end of a column's name, in Windows-1252: "speed_kmh" is in km/h, "rpm" in /min. Empty for
// lambda and for an unknown ending.
std::string_view UnitOfColumn(std::string_view name);

}  // namespace plotvane
