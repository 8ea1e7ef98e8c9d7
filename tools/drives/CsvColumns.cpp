#include "tools/drives/CsvColumns.h"

#include <algorithm>
#include <array>

namespace plotvane {
namespace {

struct ColumnKind {
    std::string_view ending;
    std::string_view unit;
};
constexpr ColumnKind kUnits[] = {
    {"rpm", "/min"},
    {"_kmh", "km/h"},
    {"_c",
     "\xB0"
     "C"},
    {"_pct", "%"},
    {"_mbar", "mbar"},
    {"_deg", "\xB0"},
    {"volt", "V"},
    {"_lph", "l/h"},
    {"_gs", "g/s"},
    {"_nm", "Nm"},
    {"_l", "l"},
    {"_ms", "ms"},
    {"_mgstr", "mg/str"},
};

// Generic OBD identifiers of the quantities that have one.
struct ColumnPid {
    std::string_view name;
    int pid;
};
constexpr ColumnPid kPids[] = {
    {"load_pct", 4},  {"coolant_c", 5}, {"stft_pct", 6},      {"ltft_pct", 7},
    {"map_mbar", 11}, {"rpm", 12},      {"speed_kmh", 13},    {"timing_deg", 14},
    {"iat_c", 15},    {"maf_gs", 16},   {"throttle_pct", 17},
};

// The groups in which the program looks for lambda values.
constexpr std::array<int, kSlotRows> kLambdaGroups = {31, 34, 35};

bool IsTime(std::string_view name) {
    return name == "t" || name.starts_with("t_");
}
bool IsLambda(std::string_view name) {
    return name.starts_with("lambda");
}

int PidOfColumn(std::string_view name) {
    const auto* const found = std::ranges::find(kPids, name, &ColumnPid::name);
    return found == std::end(kPids) ? 0 : found->pid;
}

void NumberChannels(CsvColumns& columns, const std::vector<std::string>& names) {
    std::size_t lambdaGroups = 0;
    for (std::size_t row = 0; row < columns.groups.size(); ++row) {
        const auto& members = columns.groups[row].columns;
        const bool hasLambda =
            std::ranges::any_of(members, [&](std::size_t column) { return IsLambda(names[column]); });
        const int group = hasLambda ? kLambdaGroups.at(lambdaGroups++) : static_cast<int>(row) + 1;
        for (std::size_t field = 0; field < members.size(); ++field) {
            const std::string& name = names[members[field]];
            DriveChannel& channel = columns.channels.at(row * kSlotColumns + field);
            channel.group = group;
            channel.field = static_cast<int>(field);
            channel.pid = PidOfColumn(name);
            channel.name = name;
            channel.unit = UnitOfColumn(name);
        }
    }
}

}  // namespace

std::string_view UnitOfColumn(std::string_view name) {
    for (const ColumnKind& kind : kUnits) {
        if (name.ends_with(kind.ending)) return kind.unit;
    }
    return "";
}

CsvColumns ArrangeColumns(const std::vector<std::string>& names) {
    const bool isOneClock = std::ranges::count_if(names, IsTime) == 1;
    CsvColumns columns;
    std::size_t timeColumn = names.size();  // none yet
    bool beginsGroup = false;
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (IsTime(names[i])) {
            timeColumn = i;
            beginsGroup = true;
            continue;
        }
        const bool isFull = !columns.groups.empty() && columns.groups.back().columns.size() == kSlotColumns;
        beginsGroup = beginsGroup || (isOneClock && isFull);
        const bool hasPlace = beginsGroup ? columns.groups.size() < kSlotRows : !isFull;
        if (timeColumn == names.size() || !hasPlace) {
            columns.ignored.push_back(names[i]);
            continue;
        }
        if (beginsGroup) columns.groups.push_back({timeColumn, {}});
        beginsGroup = false;
        columns.groups.back().columns.push_back(i);
    }
    NumberChannels(columns, names);
    return columns;
}

}  // namespace plotvane
