#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "scaling/FieldScaling.h"

namespace plotvane {

// The default scaling table: a sensible range for each known unit, for fields whose range nobody has chosen
// yet. It is kept in "Defaults.cfg" in the Scaling folder and edited in the Preferences dialog.
//
// Two loaders fill it, and they count differently: see LastIndex.
class DefaultScaling {
public:
    static constexpr int kRowCount = 256;

    // Reads nothing yet. The folder need not exist.
    explicit DefaultScaling(std::filesystem::path scalingFolder);

    // Reads the file when plotting starts. If it is missing, takes the built-in table (with the unit
    // "mg/str") and writes it. Fails silently: the table is then not on the disk. A file that exists but
    // cannot be read stays as it is, because it holds what the user has set.
    void LoadForPlotting();

    // The same for the Preferences dialog, but its built-in table has "mg/R" instead. The difference is kept
    // on purpose.
    void LoadDefaultScaling();

    // Writes rows 0..LastIndex(). Returns 0, or -1 if the file cannot be written. Also returns -1, and leaves
    // the file alone, while the table is the built-in one in place of a file that could not be read and
    // nobody has changed it: the user then wants to save something else.
    int SaveDefaultScaling() const;

    // The last row that counts. After LoadForPlotting has read a file, it is the row after the last record;
    // that row holds the record that ended the reading (unit "EOF", or cut short). After LoadDefaultScaling
    // it is the last record, or -1 if there is none. For the built-in table both give its last record, 9.
    int LastIndex() const { return m_lastIndex; }

    // Any row 0..255, whether it counts or not. An empty row for other numbers.
    const FieldScaling& Row(int row) const;

    // Overwrite part of a row 0..255; other numbers are ignored. A unit loses characters that would break the
    // file (commas, control bytes, 0xFF) and is cut to kMaxUnitLength bytes.
    void SetUnit(int row, std::string_view unit);
    void SetMin(int row, int min);
    void SetMax(int row, int max);

    // Adds a row: empty unit, range 0..0. False if the table is full.
    [[nodiscard]] bool AppendRow();

    // The first row before LastIndex() with exactly this unit, including upper and lower case; null if there
    // is none. Row LastIndex() itself is never found, because after LoadForPlotting it is not a record.
    const FieldScaling* FindByUnit(std::string_view unit) const;

private:
    FieldScaling* MutableRow(int row);
    template <typename Value>
    void Change(Value& value, Value wanted);
    std::optional<int> ReadRecords();
    void UseBuiltInTable(std::string_view unitOfInjectedQuantity);
    std::string Text() const;

    std::filesystem::path m_folder;
    std::array<FieldScaling, kRowCount> m_rows;
    int m_lastIndex = -1;
    bool m_isStandIn = false;  // the file exists, but the table does not come from it
};

}  // namespace plotvane
