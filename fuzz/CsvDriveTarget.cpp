#include <algorithm>
#include <cmath>
#include <string>

#include "fuzz/Inputs.h"
#include "fuzz/Slots.h"
#include "fuzz/Targets.h"
#include "link/RecordParser.h"
#include "logs/LogCheck.h"
#include "logs/LogReader.h"
#include "tests/support/Promise.h"
#include "tests/support/ScratchFolder.h"
#include "tools/drives/DriveRecord.h"
#include "tools/drives/PlainCsv.h"
#include "tools/drives/RecordText.h"
#include "tools/samples/SampleLogs.h"

namespace plotvane::fuzz {

using test::Require;
using test::ScratchFile;

namespace {

constexpr std::string_view kModule = "038 906 019 FT";

void RequireSaneChannel(const Drive& drive, int slot, double seconds) {
    constexpr std::size_t kLongestText = 100;
    constexpr int kHighestByte = 255;
    const DriveChannel& channel = drive.Channels().at(static_cast<std::size_t>(slot));
    const double value = drive.Value(slot, seconds);
    Require(value >= channel.lowest && value <= channel.highest, "a value lies in its channel's range");
    const std::string text = ValueText(drive, slot, seconds);
    Require(text.size() <= kLongestText && text.find_first_not_of("0123456789-.") == std::string::npos,
            "a value's text is a number of at most 100 digits");
    const int byte = RawByte(drive, slot, seconds);
    Require(byte >= 0 && byte <= kHighestByte, "a raw byte is a byte");
    if (channel.highest > channel.lowest) {
        Require(value != channel.lowest || byte == 0, "the lowest value is 0");
        Require(value != channel.highest || byte == kHighestByte, "the highest value is 255");
    }
}

void RequireSaneRecord(const Drive& drive, double seconds, RecordForm form) {
    const std::string text = plotvane::RecordOf(drive, seconds, form, kModule);
    Require(MakeBlock(text).has_value(), "a record fits a block");
    SlotTable slots;
    RunState state;
    Require(ParseRecord(text, text.find(',') + 1, slots, state), "a record parses");
    Require(state.tenChannels == (form == RecordForm::TenChannels), "a record has the form asked for");
    RequireSaneSlots(slots);
}

void RequireSaneLog(const std::string& log) {
    const ScratchFile file("made.csv", log);
    Require(CheckLog(file.Path()) == LogCheck::HostLog, "a log looks like one of the host's");
    RunState state;
    LogReader reader(state);
    SlotTable slots;
    RecordBuffer record;
    Require(reader.Open(file.Path()) && reader.ReadLogHeader(slots) == 1, "a log is read");
    LogRow row = LogRow::Complete;
    while (row == LogRow::Complete && !state.endOfLog) {
        row = reader.ReadLogRow(record);
        if (row != LogRow::Complete) break;
        const auto text = record.Text();
        Require(ParseRecord(text, text.find(',') + 1, slots, state), "a log's row parses");
    }
    Require(row != LogRow::Short, "no row of a log is short");
}

void RequireSaneDrive(const Drive& drive) {
    const double length = drive.Seconds();
    Require(std::isfinite(length) && length >= 0.0, "a drive lasts some time");
    for (const double seconds : {-1.0, 0.0, length / 3, length, length + 1.0}) {
        for (int slot = 0; slot < kSlotCount; ++slot) {
            if (drive.Channels().at(static_cast<std::size_t>(slot)).IsUsed())
                RequireSaneChannel(drive, slot, seconds);
        }
        for (const RecordForm form : {RecordForm::Normal, RecordForm::TenChannels, RecordForm::ObdPid})
            RequireSaneRecord(drive, seconds, form);
    }
    const LogSpan span{.from = 0.0, .to = std::min(length, 1.0)};
    // A log can only have rows for which the drive has every field.
    const auto firstEmpty = std::ranges::find_if_not(drive.Channels(), &DriveChannel::IsUsed);
    const auto fullRows = static_cast<int>(firstEmpty - drive.Channels().begin()) / kSlotColumns;
    for (int rows = 1; rows <= fullRows; ++rows) RequireSaneLog(ClassicLog(drive, span, rows));
    if (fullRows == kSlotRows) {
        RequireSaneLog(TenChannelLog(drive, span));
        RequireSaneLog(AdvancedLog(drive, span));
    }
    RequireSaneLog(ObdLog(drive, span));
}

}  // namespace

int FuzzCsvDrive(Bytes input) {
    const ScratchFile file("drive.csv", AsText(input));
    const PlainCsvResult result = LoadPlainCsv(file.Path());
    Require((result.drive == nullptr) == !result.error.empty(), "there is either a drive or an error");
    if (result.drive) RequireSaneDrive(*result.drive);
    return 0;
}

}  // namespace plotvane::fuzz
