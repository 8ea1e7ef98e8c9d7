#include "tools/samples/SampleLogs.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <vector>

#include "base/Numbers.h"

namespace plotvane {
namespace {

constexpr std::string_view kFirstLine = "Friday,20,November,2026,10:15:30\n";
constexpr std::string_view kModule = "038 906 019 FT";
constexpr std::string_view kRowNames = "ABC";
// The slots of the drive that an advanced log has.
constexpr int kAdvancedSlots[] = {0, 1, 4, 6, 8, 11};
constexpr int kAdvancedFields = static_cast<int>(std::size(kAdvancedSlots));
constexpr int kPids = 4;

const DriveChannel& ChannelAt(const Drive& drive, int slot) {
    return drive.Channels().at(static_cast<std::size_t>(slot));
}

std::string Time(double seconds) {
    std::string text;
    AppendFixed(text, seconds, 2);
    return text;
}

std::string Digits3(int number) {
    const std::string text = std::to_string(number);
    return std::string(3 - std::min<std::size_t>(3, text.size()), '0') + text;
}

// The host writes a blank in front of a unit.
std::string UnitCell(const DriveChannel& channel) {
    return channel.unit.empty() ? "" : ' ' + channel.unit;
}

// The times at which the host asked for each row: about every 0.4 s, never quite regular, rounded as in the
// log.
std::vector<double> RowTimes(const LogSpan& span) {
    constexpr double kInterval = 0.4;
    constexpr double kJitter = 0.06;
    std::vector<double> times;
    std::uint32_t random = 2026;
    for (double time = 0; span.from + time <= span.to;) {
        const bool isInGap = span.from + time >= span.gapFrom && span.from + time < span.gapTo;
        if (!isInGap) times.push_back(static_cast<double>(std::lround(time * 100)) / 100);
        random = random * 1664525U + 1013904223U;
        time += kInterval + kJitter * (static_cast<double>(random >> 8U) / 8388608.0 - 1);
    }
    return times;
}

// The host asks for one group after the other.
constexpr double kGroupDelay = 0.12;
// In the other forms it asks for one field after the other.
constexpr double kFieldDelay = 0.03;

// A time and four values, each with a comma before it.
void AppendGroup(std::string& line, const Drive& drive, int row, double start, double time) {
    line += ',' + Time(time);
    for (int column = 0; column < kSlotColumns; ++column)
        line += ',' + ValueText(drive, SlotOf(row, column), start + time);
}

// A line of the classic header: an empty column, then what `cell` returns for each row.
template <typename Cell>
std::string ColumnLine(const Drive& drive, std::string_view marker, std::string_view time, int rows,
                       int first, Cell cell) {
    std::string line(marker);
    for (int row = first; row < kSlotRows; ++row) {
        line += ',';
        line += time;
        for (int column = 0; column < kSlotColumns; ++column) {
            line += ',';
            if (row < rows) line += cell(ChannelAt(drive, SlotOf(row, column)));
        }
    }
    return line;
}

}  // namespace

std::string ClassicLog(const Drive& drive, const LogSpan& span, int rows) {
    std::string log(kFirstLine);
    log += std::string(kModule) + ",Engine control\n\n";
    for (int row = 0; row < kSlotRows; ++row) {
        // The line must end with row C's cell, because a reader counts commas from there to find the units.
        log += row == 0 ? "," : ",,,,";
        log += "Row ";
        log += kRowNames[static_cast<std::size_t>(row)];
        log += row < rows ? ",'" + Digits3(ChannelAt(drive, SlotOf(row, 0)).group) : ",none";
    }
    log += '\n';
    log +=
        ColumnLine(drive, "", "", rows, 0, [](const DriveChannel& channel) { return channel.name; }) + '\n';
    log +=
        ColumnLine(drive, "", "", rows, 0, [](const DriveChannel& channel) { return channel.detail; }) + '\n';
    log += ColumnLine(drive, "mark", "time", rows, 0, UnitCell) + '\n';
    int number = 0;
    for (const double time : RowTimes(span)) {
        std::string line = std::to_string(number++);
        for (int row = 0; row < kSlotRows; ++row) {
            if (row < rows)
                AppendGroup(line, drive, row, span.from, time + row * kGroupDelay);
            else
                line += ",,,,,";
        }
        log += line + ",\n";
    }
    return log;
}

std::string TenChannelLog(const Drive& drive, const LogSpan& span) {
    constexpr std::string_view kNoNames =
        ",,,,,,,,,,,,,,,,,,,,,\n";  // one comma less than the log has columns
    std::string log(kFirstLine);
    log += std::string(kModule) + ",Engine control\n\n,Row A,'000,,,,,,,,,,Row B,'" +
           Digits3(ChannelAt(drive, SlotOf(1, 0)).group) + ",,,,Row C,'" +
           Digits3(ChannelAt(drive, SlotOf(2, 0)).group) + '\n';
    log += kNoNames;
    log += kNoNames;
    log += ColumnLine(drive, "mark,time,,,,,,,,,,", "time", kSlotRows, 1, UnitCell) + '\n';
    int number = 0;
    for (const double time : RowTimes(span)) {
        std::string line = std::to_string(number++) + ',' + Time(time);
        for (int field = 0; field < kChannelCount; ++field)
            line += ',' + std::to_string(RawByte(drive, field, span.from + time));
        for (int row = 1; row < kSlotRows; ++row)
            AppendGroup(line, drive, row, span.from, time + 0.1 + row * kGroupDelay);
        log += line + ",\n";
    }
    return log;
}

std::string AdvancedLog(const Drive& drive, const LogSpan& span) {
    std::string cells = ",,";
    std::string units = "mark";
    for (int k = 0; k < kSlotCount; ++k) {
        const bool isUsed = k < kAdvancedFields;
        const DriveChannel channel = isUsed ? ChannelAt(drive, kAdvancedSlots[k]) : DriveChannel{};
        cells += 'G' + Digits3(channel.group) + ",F" + std::to_string(channel.field) + ',';
        units += ",time," + UnitCell(channel);
    }
    std::string log(kFirstLine);
    log += std::string(kModule) + ",ADVMB,\n" + cells + "\n";
    log += "Advanced measuring blocks\n\n\n" + units + ",\n";
    int number = 0;
    for (const double time : RowTimes(span)) {
        std::string line = std::to_string(number++);
        for (int k = 0; k < kSlotCount; ++k) {
            if (k >= kAdvancedFields) {
                line += ",,";
                continue;
            }
            const double fieldTime = time + k * kFieldDelay;
            line += ',' + Time(fieldTime) + ',' + ValueText(drive, kAdvancedSlots[k], span.from + fieldTime);
        }
        log += line + ",\n";
    }
    return log;
}

std::string ObdLog(const Drive& drive, const LogSpan& span) {
    std::vector<int> slots;
    for (int slot = 0; slot < kSlotCount && slots.size() < kPids; ++slot) {
        if (ChannelAt(drive, slot).pid > 0) slots.push_back(slot);
    }
    std::string names;
    std::string pids = "mark";
    std::string units = "mark";
    for (const int slot : slots) {
        const DriveChannel& channel = ChannelAt(drive, slot);
        names += ",," + channel.name;
        pids += ",time,PID- " + Digits3(channel.pid);
        units += ",time,(" + channel.unit + ')';
    }
    for (std::size_t k = slots.size(); k < kPids; ++k) {
        names += ",,none";
        pids += ",time,PID- 000";
        units += ",time,";
    }
    // The names go between the two: a reader looks for the units after the line of the PIDs.
    std::string log(kFirstLine);
    log += "OBD-II,generic data\n\n" + pids + '\n' + names + '\n' + units + '\n';
    int number = 0;
    for (const double time : RowTimes(span)) {
        std::string line = std::to_string(number++);
        double fieldTime = time;
        for (const int slot : slots) {
            line += ',' + Time(fieldTime) + ',' + ValueText(drive, slot, span.from + fieldTime);
            fieldTime += 0.05;
        }
        for (std::size_t k = slots.size(); k < kPids; ++k) line += ",,";
        log += line + '\n';
    }
    return log;
}

}  // namespace plotvane
