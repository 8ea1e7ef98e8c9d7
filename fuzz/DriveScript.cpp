#include "fuzz/DriveScript.h"

#include <algorithm>

#include "base/Numbers.h"
#include "tests/unit/support/ScriptedPipe.h"

namespace plotvane::fuzz {
namespace {

// A longer script would only take longer.
constexpr std::size_t kMaxPortions = 200;
constexpr std::size_t kMaxClicks = 40;
constexpr int kMaxPauseCs = 500;

void AddLine(std::string& file, std::string_view line) {
    file.append(line) += '\n';
}

}  // namespace

DriveScript::DriveScript(std::string_view text) {
    double nowMs = 0.0;
    const auto write = [this](std::string bytes) {
        if (portions.size() < kMaxPortions) portions.push_back(std::move(bytes));
    };
    while (!text.empty()) {
        std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        if (line.empty()) continue;
        const char kind = line.front();
        line.remove_prefix(1);
        switch (kind) {
            case 'h':
                hostRuns = true;
                break;
            case 'r':
                write(test::BlockOf(line));
                break;
            case 'b':
                if (!line.empty()) write(std::string(line));
                break;
            case 'i':
                write("\xFF");
                break;
            case 'x':
                write("\xFE");
                break;
            case 'c':
                write("\xFD");
                break;
            case 'w':
                write({});
                break;
            case 'e':
                AddLine(exchangeFile, line);
                break;
            case 'd':
                AddLine(defaults, line);
                break;
            case 'f':
                AddLine(ranges, line);
                break;
            case 'g':
                AddLine(prefs, line);
                break;
            case 'k':
                AddLine(labels, line);
                break;
            case 'l':
                AddLine(log, line);
                break;
            case 'z':
                log += line;
                break;
            case 't': {
                constexpr int kMsPerCs = 10;
                nowMs += kMsPerCs * std::clamp(ParseDecimal(line), 0, kMaxPauseCs);
                line.remove_prefix(std::min(line.find_first_not_of("0123456789"), line.size()));
                if (clicks.size() < kMaxClicks) clicks.push_back({nowMs, std::string(line)});
                break;
            }
            default:
                break;
        }
    }
}

}  // namespace plotvane::fuzz
