#include "scaling/DefaultScaling.h"

#include <algorithm>
#include <string>
#include <utility>

#include "base/AtomicFile.h"
#include "base/FileOperations.h"
#include "base/Numbers.h"
#include "scaling/ScalingTokens.h"

namespace plotvane {
namespace {

constexpr const char* kFileName = "Defaults.cfg";

struct BuiltInRow {
    std::string_view unit;
    int min;
    int max;
};

constexpr std::size_t kInjectedQuantityRow = 3;  // each loader gives it another unit
constexpr std::array<BuiltInRow, 10> kBuiltInRows = {{
    {"/min", 0, 6000},
    {"V", 0, 20},
    {"\xB0\x43", -10, 120},  // °C
    {"", 0, 1500},
    {"%", -50, 150},
    {"km/h", 0, 250},
    {"mbar", 900, 2500},
    {"Nm", 0, 400},
    {"\xB0", -50, 50},  // °
    {"ms", 0, 30},
}};

// A comma ends a token. The bytes 0x1A and 0xFF end the file, so all records after them would be lost.
bool BreaksTheFile(char character) {
    const auto byte = static_cast<unsigned char>(character);
    return byte == ',' || byte < 0x20 || byte == 0xFF;
}

}  // namespace

DefaultScaling::DefaultScaling(std::filesystem::path scalingFolder) : m_folder(std::move(scalingFolder)) {}

void DefaultScaling::LoadForPlotting() {
    const std::optional<int> records = ReadRecords();
    // Kept on purpose: the row that ended the reading counts too, so the table has one row more than the file
    // has records. FindByUnit stops before it and SaveDefaultScaling writes it.
    if (records) {
        m_lastIndex = std::min(*records, kRowCount - 1);
    } else {
        UseBuiltInTable("mg/str");
    }
}

void DefaultScaling::LoadDefaultScaling() {
    const std::optional<int> records = ReadRecords();
    if (records) {
        m_lastIndex = *records - 1;
    } else {
        UseBuiltInTable("mg/R");
    }
}

int DefaultScaling::SaveDefaultScaling() const {
    // The file still holds the user's own list.
    if (m_isStandIn) return -1;
    return ReplaceTextFile(m_folder / kFileName, Text()) ? 0 : -1;
}

std::string DefaultScaling::Text() const {
    std::string text;
    for (int row = 0; row <= m_lastIndex; ++row) {
        const FieldScaling& scaling = Row(row);
        text += scaling.unit;
        text += ',';
        AppendDecimal(text, scaling.min);
        text += ',';
        AppendDecimal(text, scaling.max);
        text += ",\n";
    }
    return text;
}

const FieldScaling& DefaultScaling::Row(int row) const {
    static const FieldScaling kEmpty;
    return row >= 0 && row < kRowCount ? m_rows[static_cast<std::size_t>(row)] : kEmpty;
}

FieldScaling* DefaultScaling::MutableRow(int row) {
    return row >= 0 && row < kRowCount ? &m_rows[static_cast<std::size_t>(row)] : nullptr;
}

void DefaultScaling::SetUnit(int row, std::string_view unit) {
    FieldScaling* const scaling = MutableRow(row);
    if (!scaling) return;
    std::string kept(unit);
    std::erase_if(kept, BreaksTheFile);
    kept.resize(std::min(kept.size(), kMaxUnitLength));
    Change(scaling->unit, std::move(kept));
}

void DefaultScaling::SetMin(int row, int min) {
    if (FieldScaling* const scaling = MutableRow(row)) Change(scaling->min, min);
}

void DefaultScaling::SetMax(int row, int max) {
    if (FieldScaling* const scaling = MutableRow(row)) Change(scaling->max, max);
}

// Dialogs call this for every edit that loses the focus, even if its text has not changed.
template <typename Value>
void DefaultScaling::Change(Value& value, Value wanted) {
    if (value == wanted) return;
    value = std::move(wanted);
    m_isStandIn = false;
}

bool DefaultScaling::AppendRow() {
    FieldScaling* const scaling = MutableRow(m_lastIndex + 1);
    if (!scaling) return false;
    *scaling = {};
    ++m_lastIndex;
    m_isStandIn = false;
    return true;
}

const FieldScaling* DefaultScaling::FindByUnit(std::string_view unit) const {
    for (int row = 0; row < m_lastIndex; ++row) {
        if (Row(row).unit == unit) return &Row(row);
    }
    return nullptr;
}

// Fills the rows from the file and returns the number of complete records; nothing, with the rows unchanged,
// if it cannot be read. The row after the last record takes what the end of the file holds: the unit, and a
// minimum without a maximum.
std::optional<int> DefaultScaling::ReadRecords() {
    TextInput file = OpenWholeFile(m_folder / kFileName);
    if (!file.IsOpen()) return std::nullopt;
    auto rows = m_rows;
    int records = 0;
    for (; records < kRowCount; ++records) {
        FieldScaling& row = rows[static_cast<std::size_t>(records)];
        row.unit = ReadTextToken(file);
        if (row.unit == kEndText) break;
        const int min = ReadIntToken(file);
        const int max = ReadIntToken(file);
        const bool isCutShort = max == kEndMarker;
        if (!isCutShort || min != kEndMarker) row.min = min;
        if (isCutShort) break;
        row.max = max;
    }
    if (file.HasFailed()) return std::nullopt;
    m_rows = std::move(rows);
    m_isStandIn = false;
    return records;
}

void DefaultScaling::UseBuiltInTable(std::string_view unitOfInjectedQuantity) {
    for (std::size_t row = 0; row < kBuiltInRows.size(); ++row) {
        const auto& [unit, min, max] = kBuiltInRows[row];
        m_rows[row] = {std::string(row == kInjectedQuantityRow ? unitOfInjectedQuantity : unit), min, max};
    }
    m_lastIndex = static_cast<int>(kBuiltInRows.size()) - 1;
    // If the file exists, it holds the user's list, and can be read once the program that has it open has
    // closed it.
    m_isStandIn = KindOf(m_folder / kFileName) != FileKind::Missing;
    if (m_isStandIn) return;
    MakeFolders(m_folder);
    static_cast<void>(CreateTextFile(m_folder / kFileName, Text()));
}

}  // namespace plotvane
