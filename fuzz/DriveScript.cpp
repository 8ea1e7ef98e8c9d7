#include "fuzz/DriveScript.h"

#include <algorithm>
#include <utility>

#include "base/Numbers.h"
#include "tests/support/Records.h"

namespace plotvane::fuzz {
namespace {

// A longer script would only take longer.
constexpr std::size_t kMaxPortions = 200;
constexpr std::size_t kMaxClicks = 40;
constexpr int kMaxPauseCs = 500;

}  // namespace

DriveScript::DriveScript(std::string_view text) {
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        if (!line.empty()) Take(line.front(), line.substr(1));
    }
}

void DriveScript::Take(char kind, std::string_view line) {
    switch (kind) {
        case 'h':
            hostRuns = true;
            break;
        case 'r':
            Write(test::BlockOf(line));
            break;
        case 'b':
            if (!line.empty()) Write(std::string(line));
            break;
        case 'i':
            Write("\xFF");
            break;
        case 'x':
            Write("\xFE");
            break;
        case 'c':
            Write("\xFD");
            break;
        case 'w':
            Write({});
            break;
        case 't':
            AddClick(line);
            break;
        case 'z':
            log += line;
            break;
        default:
            if (std::string* const file = FileOf(kind)) file->append(line) += '\n';
            break;
    }
}

void DriveScript::Write(std::string bytes) {
    if (portions.size() < kMaxPortions) portions.push_back(std::move(bytes));
}

void DriveScript::AddClick(std::string_view line) {
    constexpr int kMsPerCs = 10;
    m_nowMs += kMsPerCs * std::clamp(ParseDecimal(line), 0, kMaxPauseCs);
    line.remove_prefix(std::min(line.find_first_not_of("0123456789"), line.size()));
    if (clicks.size() < kMaxClicks) clicks.push_back({m_nowMs, std::string(line)});
}

std::string* DriveScript::FileOf(char kind) {
    switch (kind) {
        case 'e':
            return &exchangeFile;
        case 'd':
            return &defaults;
        case 'f':
            return &ranges;
        case 'g':
            return &prefs;
        case 'k':
            return &labels;
        case 'l':
            return &log;
        default:
            return nullptr;
    }
}

}  // namespace plotvane::fuzz
