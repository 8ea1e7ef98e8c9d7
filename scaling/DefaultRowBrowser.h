#pragma once

#include <string>
#include <string_view>

#include "scaling/DefaultScaling.h"

namespace plotvane {

// Shows the default scaling table in the Preferences dialog row by row, and edits the current row in place.
// In an empty table there is no row to show, and edits are ignored.
class DefaultRowBrowser {
public:
    // What became of the request for a new row. Unless it is Full, the last row is the current one
    // afterwards.
    enum class NewRow {
        Added,           // a new, empty row
        Full,            // nothing was changed
        LastIncomplete,  // the last row lacks its unit or its maximum
        LastUpsideDown,  // the last row's maximum is not above its minimum
    };

    explicit DefaultRowBrowser(DefaultScaling& table) : m_table(table) {}

    // Reads the table from its file and shows the first row.
    void Load();

    bool HasRow() const;
    const FieldScaling& Row() const;  // empty if there is none

    // Which row of how many, counted from 1: "Field#: 3/10"; of an empty table "Field#: 1/0".
    std::string Position(std::string_view label) const;

    void GoToNext();  // they stop at the ends of the table
    void GoToPrevious();

    [[nodiscard]] NewRow AppendRow();

    // Enter what was typed for the row. A unit loses characters that would break the file. False, with the
    // row unchanged, if there is no row, or for a unit or a maximum that the file's reader would take for the
    // end of the table, losing all rows after it.
    bool EnterUnit(std::string_view text);
    void EnterMin(std::string_view text);
    bool EnterMax(std::string_view text);

private:
    DefaultScaling& m_table;
    int m_row = 0;
};

}  // namespace plotvane
