#pragma once

#include <string>
#include <vector>

#include "history/LookBack.h"

namespace plotvane {

// A trace beside the plot. Texts are Windows-1252.
struct ListedTrace {
    int trace = 0;
    bool isHidden = false;
    bool isInFront = false;
    std::string name;
    std::string value;       // with the unit, at the sample that is told
    std::string extent;      // lowest and highest in view; between two cursors also the mean
    std::string difference;  // from the cursor to the second one; empty without it
};

// The traces that show something at the sample that is told, in their order.
std::vector<ListedTrace> ListOf(const LookBack& state);

// A cursor's time, and from the cursor to the second one; empty where there is none.
struct CursorTexts {
    std::string time;
    std::string distance;
};
CursorTexts TimesOfCursors(const LookBack& state);

// How much is recorded, as in "3 min 12 s recorded, following", and whether the recording has ended because
// there was no memory left.
std::string RecordedNote(const LookBack& state);

// The figures at the cursors as text for a spreadsheet: tabs separate the cells, CR LF ends each line. With
// one cursor or none, one value for each trace; with two, the values at both, difference, lowest, mean and
// highest. Hidden traces are left out.
std::string CursorTable(const LookBack& state);

}  // namespace plotvane
