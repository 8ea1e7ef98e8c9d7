#include "scaling/ModuleScaling.h"

#include <algorithm>
#include <utility>

#include "base/AtomicFile.h"
#include "base/FileName.h"
#include "base/Numbers.h"
#include "scaling/ScalingTokens.h"

namespace plotvane {
namespace {

constexpr const char* kObdFileName = "OBD.SCL";

// No module has this name, because a module's name ends at its first comma.
constexpr char kNoModule = ',';

// More than any file needs: one with nine numbers a line, read in threes, gives 765.
constexpr int kMaxGroupsRead = 1024;

// The marker is a valid number, which a user may have chosen. It means the end only where the text ends.
bool HasEnded(int token, TextInput& file) {
    return token == kEndMarker && file.Peek() == TextInput::kEnd;
}

// A field of a group in the table, as const as the table; null outside it.
template <typename Table>
auto* Find(Table& table, int group, int field) {
    using Scaling = ModuleScaling;
    const bool isInside = group >= Scaling::kFirstGroup && group <= Scaling::kLastGroup && field >= 0 &&
                          field < Scaling::kFieldCount;
    return isInside ? &table[static_cast<std::size_t>(group)][static_cast<std::size_t>(field)] : nullptr;
}

}  // namespace

ModuleScaling::ModuleScaling(std::filesystem::path scalingFolder, DefaultScaling& defaults, RunState& state)
    : m_folder(std::move(scalingFolder)), m_defaults(defaults), m_state(state) {}

ModuleLoad ModuleScaling::LoadModuleScaling(const std::string& fileName) {
    if (fileName == m_loadedName) return ModuleLoad::AlreadyLoaded;
    m_loadedName = fileName;
    m_loadedWhole = false;
    if (fileName == kObdFileName) m_state.obdFile = true;
    m_defaults.LoadForPlotting();
    if (!IsSafeFileName(fileName)) return ModuleLoad::Failed;

    const std::filesystem::path path = PathOf(fileName);
    m_loadedWhole = Read(path) || (Create(path) && Read(path));
    return m_loadedWhole ? ModuleLoad::Loaded : ModuleLoad::Failed;
}

int ModuleScaling::SaveModuleScaling(const std::string& fileName) const {
    if (!IsSafeFileName(fileName)) return -1;
    std::string text;
    WriteModuleScaling(m_table, text);
    return ReplaceTextFile(PathOf(fileName), text) ? 0 : -1;
}

ScaleRange ModuleScaling::RangeOf(int group, int field) const {
    const ScaleRange* const range = Find(m_table, group, field);
    return range ? *range : ScaleRange{};
}

void ModuleScaling::SetMin(int group, int field, int value) {
    if (ScaleRange* const range = Find(m_table, group, field)) range->min = value;
}

void ModuleScaling::SetMax(int group, int field, int value) {
    if (ScaleRange* const range = Find(m_table, group, field)) range->max = value;
}

void ModuleScaling::ForgetLoadedName() {
    m_loadedName = kNoModule;
    m_loadedWhole = false;
}

std::filesystem::path ModuleScaling::PathOf(const std::string& fileName) const {
    return m_folder / PathFromText(fileName);
}

// Resets the fields that files of this form keep. The other fields stay as they are.
ModuleScaling::Table ModuleScaling::WithFileFieldsUnset() const {
    Table table = m_table;
    for (int group = kFirstGroup; group <= kLastGroup; ++group) {
        for (int field = 0; field < FieldsInFile(); ++field) *Find(table, group, field) = {};
    }
    return table;
}

void ModuleScaling::WriteModuleScaling(const Table& table, std::string& text) const {
    const auto add = [&text](int number) {
        AppendDecimal(text, number);
        text += ',';
    };
    add(m_state.pixelShift);
    text += '\n';
    for (int group = kFirstGroup; group <= kLastGroup; ++group) {
        add(group);
        for (int field = 0; field < FieldsInFile(); ++field) {
            const ScaleRange& range = *Find(table, group, field);
            add(range.min);
            add(range.max);
        }
        text += '\n';
    }
}

// Only for a missing file. One that just cannot be read now holds ranges that the user chose.
bool ModuleScaling::Create(const std::filesystem::path& path) const {
    std::string text;
    WriteModuleScaling(WithFileFieldsUnset(), text);
    return CreateTextFile(path, text);
}

// Rows that a short file does not name start from 0..100, as in a new file, because what was in memory before
// belongs to another module. A last group beyond 255 ends the reading as 255 does; its line and those of
// groups below 1 are skipped. A file that cannot be read to its end changes nothing.
bool ModuleScaling::Read(const std::filesystem::path& path) {
    TextInput file = OpenWholeFile(path);
    if (!file.IsOpen()) return false;
    int pixelShift = ReadIntToken(file);
    pixelShift = HasEnded(pixelShift, file) ? m_state.pixelShift
                                            : std::clamp(pixelShift, kPixelShiftMin, kPixelShiftMax);
    Table table = WithFileFieldsUnset();
    ReadGroups(file, table);
    if (file.HasFailed()) return false;
    m_state.pixelShift = pixelShift;
    m_table = table;
    return true;
}

void ModuleScaling::ReadGroups(TextInput& file, Table& table) const {
    for (int i = 0; i < kMaxGroupsRead; ++i) {
        const int group = ReadIntToken(file);
        if (group == kEndMarker) return;
        for (int field = 0; field < FieldsInFile(); ++field) {
            ScaleRange* const range = Find(table, group, field);
            const int min = ReadIntToken(file);
            if (HasEnded(min, file)) return;
            if (range) range->min = min;
            const int max = ReadIntToken(file);
            if (HasEnded(max, file)) return;
            if (range) range->max = max;
        }
        if (group >= kLastGroup) return;
    }
}

}  // namespace plotvane
