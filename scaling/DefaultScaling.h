#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "scaling/FieldScaling.h"

namespace plotvane {

// The default scaling table: a sensible range for each known unit, for fields whose range nobody has chosen
// yet. Kept in "Defaults.cfg" in the Scaling folder and edited in the Preferences dialog.
//
// Two loaders fill it, and they count differently: see LastIndex.
class DefaultScaling {
public:
    static constexpr int kRowCount = 256;

    // Nothing is read yet. The folder need not exist.
    explicit DefaultScaling(std::filesystem::path scalingFolder);

    // Reads the file when plotting starts, or takes the built-in table (with the unit "mg/str"), and writes
    // that where the file is missing. Failures are silent: the table then just is not on the disk. A file
    // that is there and cannot be read stays as it is: it holds what the user has set.
    void LoadForPlotting();

    // The same for the Preferences dialog; its built-in table has "mg/R" instead, a difference kept on
    // purpose.
    void LoadDefaultScaling();

    // Writes rows 0..LastIndex(). 0, or -1 if the file cannot be written. Also -1, with the file left alone,
    // while the table is the built-in one in place of a file that could not be read, and nobody has changed
    // it: the user then wants to save something else.
    int SaveDefaultScaling() const;

    // The last row that counts. After LoadForPlotting of a file it is the row behind the last record, which
    // holds the record that ended the reading (unit "EOF", or cut short); after LoadDefaultScaling it is the
    // last record, -1 if there is none. The built-in table has its last record, 9, from both.
    int LastIndex() const { return m_lastIndex; }

    // Any row 0..255, whether it counts or not; an empty one for other numbers.
    const FieldScaling& Row(int row) const;

    // Overwrite part of a row 0..255; other numbers are ignored. A unit loses what would break the file
    // (commas, control bytes, 0xFF) and is cut to kMaxUnitLength bytes.
    void SetUnit(int row, std::string_view unit);
    void SetMin(int row, int min);
    void SetMax(int row, int max);

    // One more row: empty unit, range 0..0. False if the table is full.
    [[nodiscard]] bool AppendRow();

    // The first row before LastIndex() that has exactly this unit, letter case included; null if none has.
    // Row LastIndex() itself is never found: after LoadForPlotting it is no record.
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
    bool m_isStandIn = false;  // the file is there, but this is not what it holds
};

}  // namespace plotvane
