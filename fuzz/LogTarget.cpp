#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "fuzz/Inputs.h"
#include "fuzz/Slots.h"
#include "fuzz/Targets.h"
#include "link/RecordParser.h"
#include "logs/LogCheck.h"
#include "logs/LogReader.h"
#include "tests/support/Promise.h"
#include "tests/support/ScratchFolder.h"

namespace plotvane::fuzz {

using test::Require;
using test::ScratchFile;

namespace {

constexpr std::size_t kMaxParsedText = 100;  // of a value and of a unit in a record

// Everything that a replay gets out of a log.
struct Replay {
    int header = 0;
    std::string moduleName;
    SlotTable slots;
    bool obdFile = false;
    std::vector<std::string> records;
    std::vector<std::array<double, kSlotRows>> stamps;
    LogRow last = LogRow::Complete;

    bool operator==(const Replay& other) const {
        return header == other.header && moduleName == other.moduleName && AreEqual(slots, other.slots) &&
               obdFile == other.obdFile && records == other.records && stamps == other.stamps &&
               last == other.last;
    }
};

Replay Read(const std::filesystem::path& path, std::size_t fileSize) {
    RunState state;
    LogReader reader(state);
    RecordBuffer record;
    Replay replay;
    Require(reader.Open(path), "a log that is there is opened");
    replay.header = reader.ReadLogHeader(replay.slots);
    replay.moduleName = reader.ModuleName();
    replay.obdFile = state.obdFile;
    for (std::size_t rows = 0; !state.endOfLog; ++rows) {
        Require(rows <= fileSize, "every row takes something of the file");
        replay.last = reader.ReadLogRow(record);
        replay.records.emplace_back(record.Text());
        replay.stamps.push_back(reader.Stamps());
        Require(replay.last == LogRow::Complete || state.endOfLog, "anything but a whole row ends the log");
    }
    return replay;
}

void RequireSaneHeader(const Replay& replay) {
    Require(replay.header == 1, "no header is malformed");
    Require(replay.moduleName.size() <= 15 && replay.moduleName.find(',') == std::string::npos,
            "a module's name has at most 15 characters");
    for (const FieldSlot& slot : replay.slots.slots) {
        Require(slot.group >= -1 && slot.group <= 999, "a group is three digits");
        Require(slot.field >= 0 && slot.field <= 9, "a field is one digit");
        Require(slot.unit.size() <= LogText::kMaxCellLength, "a unit is bounded");
    }
}

// Whether each item of a record is short enough for the parser. Only the text between two commas can be too
// long: names and tags are bounded.
bool FitsTheParser(std::string_view record) {
    while (!record.empty()) {
        const std::size_t length = std::min(record.find(','), record.size());
        if (length > kMaxParsedText) return false;
        record.remove_prefix(std::min(length + 1, record.size()));
    }
    return true;
}

void RequireSaneRows(const Replay& replay) {
    for (const auto& stamps : replay.stamps)
        Require(std::ranges::all_of(stamps, [](double stamp) { return std::isfinite(stamp); }),
                "a time stamp is finite");
    for (std::size_t row = 0; row < replay.records.size(); ++row) {
        const std::string& record = replay.records[row];
        Require(record.size() <= RecordBuffer::kMaxTextLength, "a record has at most 512 characters");
        SlotTable slots;
        RunState state;
        const auto comma = record.find(',');
        const bool parsed = comma != std::string::npos && ParseRecord(record, comma + 1, slots, state);
        RequireSaneSlots(slots);
        const bool whole = row + 1 < replay.records.size() || replay.last == LogRow::Complete;
        // The unit of a generic OBD log may hold commas, so its record may hold anything.
        if (!whole || replay.obdFile || !FitsTheParser(record)) continue;
        Require(parsed, "a whole row is a record that parses");
        if (state.tenChannels) continue;
        for (int slot = 0; slot < kSlotCount; ++slot) {
            const FieldSlot& column = replay.slots[slot];
            Require(slots[slot].group == std::max(column.group, 0),
                    "a row's values go where the header says");
            if (column.group >= 1) Require(slots[slot].field == column.field, "and to the field it says");
        }
    }
}

// The rule of the first line, written down a second time.
LogCheck CheckOf(std::string_view text) {
    constexpr std::size_t kCommaWithin = 99;
    constexpr std::string_view kTimeForm = "dd:dd:dd";
    const std::string_view line = text.substr(0, text.find('\n'));
    int commas = 0;
    for (std::size_t i = 0; i < std::min(line.size(), kCommaWithin); ++i) {
        if (line[i] != ',' || ++commas < 4) continue;
        const auto time = line.substr(i + 1, kTimeForm.size());
        const bool isTime = std::ranges::equal(time, kTimeForm, [](char c, char form) {
            return form == 'd' ? c >= '0' && c <= '9' : c == form;
        });
        return isTime ? LogCheck::HostLog : LogCheck::SomethingElse;
    }
    return LogCheck::SomethingElse;
}

}  // namespace

int FuzzLog(Bytes input) {
    const std::string_view bytes = AsText(input);
    const ScratchFile file("fuzz.csv", bytes);
    Require(CheckLog(file.Path()) == CheckOf(TextOfFile(bytes)),
            "the first line shows whether a file is a log");

    const Replay replay = Read(file.Path(), bytes.size());
    RequireSaneHeader(replay);
    RequireSaneRows(replay);
    if (bytes.find('\r') == std::string_view::npos) {
        file.Write(WithCrLf(bytes));
        Require(Read(file.Path(), 2 * bytes.size()) == replay, "both line ends read the same");
    }
    return 0;
}

}  // namespace plotvane::fuzz
