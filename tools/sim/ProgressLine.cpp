#include "tools/sim/ProgressLine.h"

#include <algorithm>

#include "base/Numbers.h"

namespace plotvane {
namespace {

// Right-aligned, so that the columns stay in place as the numbers grow.
void AppendRight(std::string& line, std::string_view text, std::size_t width) {
    line.append(width - std::min(width, text.size()), ' ');
    line += text;
}

}  // namespace

std::string ProgressLine(const PlayProgress& progress) {
    std::string line;
    std::string number;
    AppendFixed(number, progress.driveSeconds, 1);
    AppendRight(line, number, 7);
    line += " s  ";
    if (!progress.phase.empty()) {
        line += progress.phase;
        line.append(11 - std::min<std::size_t>(11, progress.phase.size()), ' ');
    }
    number.clear();
    AppendDecimal(number, progress.records);
    AppendRight(line, number, 5);
    line += " records  ";
    line += progress.values;
    if (progress.heldBack > 0) {
        line += "  (";
        AppendDecimal(line, progress.heldBack);
        line += " left out: the program is not reading)";
    }
    return line;
}

}  // namespace plotvane
