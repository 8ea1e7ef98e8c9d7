#include <algorithm>
#include <limits>
#include <string>

#include "fuzz/Inputs.h"
#include "fuzz/Targets.h"
#include "scaling/DefaultScaling.h"
#include "scaling/ScalingTokens.h"
#include "tests/support/Promise.h"
#include "tests/support/ScratchFolder.h"

namespace plotvane::fuzz {

using test::Require;
using test::ScratchFile;
using test::ScratchPath;

namespace {

using Loader = void (DefaultScaling::*)();

bool IsEqual(const FieldScaling& a, const FieldScaling& b) {
    return a.unit == b.unit && a.min == b.min && a.max == b.max;
}

void RequireSaneTable(const DefaultScaling& table, int lowestLastIndex) {
    Require(table.LastIndex() >= lowestLastIndex && table.LastIndex() < DefaultScaling::kRowCount,
            "the last row lies in the table");
    for (int row = -1; row <= DefaultScaling::kRowCount; ++row) {
        const std::string& unit = table.Row(row).unit;
        Require(unit.size() <= kMaxUnitLength && unit.find(',') == std::string::npos,
                "a unit has at most 39 characters and no comma");
        if (row < 0 || row >= table.LastIndex()) continue;
        const FieldScaling* const found = table.FindByUnit(unit);
        Require(found && found->unit == unit, "a record before the last is found by its unit");
    }
}

// Whether the saved file reads back as the same rows. It does not if a unit holds a line end, which reading
// drops, or if a row before the last one holds one of the two end marks.
bool SurvivesAFile(const DefaultScaling& table) {
    for (int row = 0; row <= table.LastIndex(); ++row) {
        const FieldScaling& record = table.Row(row);
        const bool isLast = row == table.LastIndex();
        if (record.unit.find_first_of("\r\n") != std::string::npos) return false;
        if (!isLast && (record.unit == kEndText || record.max == kEndMarker)) return false;
    }
    return true;
}

void RequireSaneFile(Loader load, int lowestLastIndex, const ScratchFile& file) {
    DefaultScaling table(ScratchPath());
    (table.*load)();
    RequireSaneTable(table, lowestLastIndex);
    Require(table.SaveDefaultScaling() == 0, "the table is saved");
    DefaultScaling reloaded(ScratchPath());
    (reloaded.*load)();
    RequireSaneTable(reloaded, lowestLastIndex);
    if (!SurvivesAFile(table)) return;

    // If the file ended in the middle of the last row, saving has completed that row. If the last row holds
    // an end mark, only its unit is read back, and its minimum if the end mark is its maximum.
    const int more = reloaded.LastIndex() - table.LastIndex();
    Require(more == 0 || (more == 1 && load == &DefaultScaling::LoadForPlotting),
            "a saved table has as many rows as before");
    for (int row = 0; row < table.LastIndex(); ++row)
        Require(IsEqual(table.Row(row), reloaded.Row(row)), "a saved table reloads to the same");
    Require(table.Row(table.LastIndex()).unit == reloaded.Row(table.LastIndex()).unit,
            "a saved table reloads to the same");

    const std::string saved = file.Bytes();
    Require(reloaded.SaveDefaultScaling() == 0, "the table is saved");
    if (more == 0) Require(file.Bytes() == saved, "a reloaded table saves the same");
}

// Does what the Preferences dialog does: edits rows and saves.
void RequireEditsSurvive(std::string_view unit, int min, int max) {
    DefaultScaling table(ScratchPath());
    table.LoadDefaultScaling();
    const bool full = table.LastIndex() == DefaultScaling::kRowCount - 1;
    Require(table.AppendRow() == !full, "a table takes rows until it is full");
    const int row = table.LastIndex();
    for (const int target : {row, -1, DefaultScaling::kRowCount}) {
        table.SetUnit(target, unit);
        table.SetMin(target, min);
        table.SetMax(target, max);
    }
    RequireSaneTable(table, -1);
    const FieldScaling& edited = table.Row(row);
    Require(edited.unit.find_first_of("\r\n\x1A\xFF") == std::string::npos,
            "an edited unit does not break the file");
    Require(table.SaveDefaultScaling() == 0, "the table is saved");
    if (edited.unit == kEndText || max == kEndMarker || !SurvivesAFile(table)) return;
    DefaultScaling reloaded(ScratchPath());
    reloaded.LoadDefaultScaling();
    Require(reloaded.LastIndex() == table.LastIndex() && IsEqual(reloaded.Row(row), edited),
            "an edited row reloads to the same");
}

int NumberAt(std::string_view bytes, std::size_t position) {
    std::uint32_t number = 0;
    for (const char c : bytes.substr(std::min(position, bytes.size()), sizeof number))
        number = number << 8 | static_cast<unsigned char>(c);
    return static_cast<int>(number);
}

}  // namespace

// Two parts: Defaults.cfg, and the text that a user types as a unit in the Preferences dialog.
int FuzzDefaults(Bytes input) {
    std::string_view rest = AsText(input);
    const std::string_view bytes = TakePart(rest);
    const std::string_view typed = TakePart(rest);
    const ScratchFile file("Defaults.cfg", bytes);

    RequireSaneFile(&DefaultScaling::LoadForPlotting, 0, file);
    file.Write(bytes);
    RequireSaneFile(&DefaultScaling::LoadDefaultScaling, -1, file);

    file.Write(bytes);
    RequireEditsSurvive(typed, NumberAt(typed, 0), NumberAt(typed, 4));
    if (bytes.find('\r') == std::string_view::npos) {
        DefaultScaling lf(ScratchPath());
        file.Write(bytes);
        lf.LoadForPlotting();
        DefaultScaling crLf(ScratchPath());
        file.Write(WithCrLf(bytes));
        crLf.LoadForPlotting();
        Require(lf.LastIndex() == crLf.LastIndex(), "both line ends read the same");
        for (int row = 0; row <= lf.LastIndex(); ++row)
            Require(IsEqual(lf.Row(row), crLf.Row(row)), "both line ends read the same");
    }
    return 0;
}

}  // namespace plotvane::fuzz
