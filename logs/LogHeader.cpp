#include "logs/LogHeader.h"

#include "base/Numbers.h"

namespace plotvane {
namespace {

constexpr std::size_t kMaxModuleNameLength = 15;
constexpr int kMaxMarkLength = 6;
constexpr std::string_view kAdvancedMark = "ADVMB";
constexpr std::string_view kObdName = "OBD";

// A classic chart row takes five columns, its time and four values; the ten-channel group takes eleven. The
// cell that names a row's group is above its first value.
constexpr int kRowColumns = 5;
constexpr int kTenChannelRowColumns = 11;

// From the cell of row C to the first column of the line with the units, which is three lines further down.
constexpr int kCommasToUnits = 31;
// With ten channels, each of the two lines in between has six commas more. This is one six; the other six are
// skipped together with the ten texts of the row.
constexpr int kMoreCommasToUnits = 6;
constexpr int kTenChannelTexts = 16;

std::string WithoutLeadingBlank(std::string_view unit) {
    if (unit.starts_with(' ')) unit.remove_prefix(1);
    return std::string(unit);
}

// Text after the module name marks the advanced form.
bool TakeAdvancedMark(LogText& text) {
    std::string mark;
    for (int length = 0; length < kMaxMarkLength; ++length) {
        const auto c = text.TakeLetterOrDigit();
        if (!c) break;
        mark += *c;
    }
    return mark.find(kAdvancedMark) != std::string::npos;
}

// "'001": an apostrophe and three digits; anything else is not a group.
int TakeGroupCell(LogText& text) {
    return text.Take('\'') ? text.TakeDigits(3).value_or(kNoGroup) : kNoGroup;
}

void TakeClassicUnit(LogText& text, std::string& unit) {
    const auto end = text.ReadCell();
    unit = WithoutLeadingBlank(text.Cell());
    if (end == LogText::CellEnd::LineEnd) text.SkipLines(1);
}

void ReadClassicHeader(LogText& text, LogHeader& header) {
    text.SkipLines(2);
    text.SkipPast(',', 2);
    auto& groups = header.rowGroups;
    groups[0] = TakeGroupCell(text);
    const bool tenChannels = groups[0] == kTenChannelGroup;
    text.SkipPast(',', tenChannels ? kTenChannelRowColumns : kRowColumns);
    groups[1] = TakeGroupCell(text);
    text.SkipPast(',', kRowColumns);
    groups[2] = TakeGroupCell(text);
    text.SkipPast(',', kCommasToUnits + (tenChannels ? kMoreCommasToUnits : 0));
    for (int row = 0; row < kSlotRows; ++row) {
        const int group = groups.at(static_cast<std::size_t>(row));
        text.SkipPast(',');
        if (group == kTenChannelGroup) text.SkipPast(',', kTenChannelTexts);
        for (int field = 0; field < kSlotColumns; ++field) {
            LogColumn& column = header.columns.at(static_cast<std::size_t>(SlotOf(row, field)));
            column.group = group;
            column.field = field;
            if (group != kTenChannelGroup) TakeClassicUnit(text, column.unit);
        }
    }
}

// "G001,F0,". The host always writes three digits; with fewer, the columns that follow need not be where this
// reader looks.
bool TakeAdvancedCell(LogText& text, LogColumn& column) {
    if (!text.Take('G')) return false;
    const auto group = text.TakeDigits(3);
    if (!group || !text.Take(',') || !text.Take('F')) return false;
    const auto field = text.TakeDigits(1);
    if (!field || !text.Take(',')) return false;
    column.group = *group;
    column.field = *field;
    return true;
}

void ReadAdvancedHeader(LogText& text, LogHeader& header) {
    header.form = LogForm::Advanced;
    text.SkipLines(1);
    text.SkipPast(',', 2);
    for (LogColumn& column : header.columns)
        if (!TakeAdvancedCell(text, column)) return;
    text.SkipLines(4);
    text.SkipPast(',');
    for (LogColumn& column : header.columns) {
        text.SkipPastInLine(',');
        text.ReadCell();
        column.unit = WithoutLeadingBlank(text.Cell());
    }
    text.SkipLines(1);
}

// "PID- 012": a "-", any one character, then the three characters of the number. The search for "-" does not
// stop at line ends, but a number ends with its line.
int TakePid(LogText& text) {
    text.SkipPast('-');
    text.SkipCharacter();
    return ParseDecimal(text.TakeCharacters(3));
}

void ReadObdHeader(LogText& text, LogHeader& header) {
    header.form = LogForm::Obd;
    header.moduleName = kObdName;
    // Kept on purpose: until the first row names the identifiers, the slots count as those of groups 0 and 1.
    header.columns[0].group = 0;
    header.columns[SlotOf(1, 0)].group = 1;
    text.SkipLines(1);
    for (int& pid : header.pids) pid = TakePid(text);
    text.SkipLines(1);
    bool isAfterUnit = false;
    for (std::size_t slot = 0; slot < header.pids.size(); ++slot) {
        if (header.pids.at(slot) < 1) continue;
        text.SkipPast('(');  // "Engine speed (/min)"
        header.columns.at(slot).unit = text.ReadUpTo(')');
        isAfterUnit = true;
    }
    if (!isAfterUnit) return;
    // The first row is on the next line, or it goes on right here with a comma and its time.
    header.tookFirstMarker = text.Take(',') && text.AtDigit();
    if (!header.tookFirstMarker) text.SkipLines(1);
}

}  // namespace

LogHeader ReadLogHeader(LogText& text) {
    LogHeader header;
    text.SkipLines(1);
    text.ReadCell();
    header.moduleName = text.Cell().substr(0, kMaxModuleNameLength);
    if (header.moduleName.find(kObdName) != std::string::npos)
        ReadObdHeader(text, header);
    else if (TakeAdvancedMark(text))
        ReadAdvancedHeader(text, header);
    else
        ReadClassicHeader(text, header);
    return header;
}

}  // namespace plotvane
