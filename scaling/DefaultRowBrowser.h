#pragma once

#include <string>
#include <string_view>

#include "scaling/DefaultScaling.h"

namespace plotvane {

// Shows the default scaling table to the Preferences dialog row by row, and edits the row that is shown in
// place. A table may be empty: then there is no row to show, and edits are ignored.
class DefaultRowBrowser {
public:
    // What became of a wish for a new row. Unless it is Full, the last row is the one shown afterwards.
    enum class NewRow {
        Added,           // it is empty
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

    void GoToNext();  // these stay where the table ends
    void GoToPrevious();

    [[nodiscard]] NewRow AppendRow();

    // What was typed for the row. A unit loses what would break the file. False, with the row as it was, for
    // a unit or a maximum that the file's reader takes for the end of the table, and with it all rows after
    // it, and where there is no row.
    bool EnterUnit(std::string_view text);
    void EnterMin(std::string_view text);
    bool EnterMax(std::string_view text);

private:
    DefaultScaling& m_table;
    int m_row = 0;
};

}  // namespace plotvane
