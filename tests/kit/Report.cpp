#include "tests/kit/Report.h"

#include <cstdio>

namespace plotvane::kit {
namespace {

constexpr int kNameWidth = 22;

std::string Padded(std::string text, std::size_t width) {
    if (text.size() < width) text.resize(width, ' ');
    return text;
}

std::string Seconds(double seconds) {
    char text[32];
    std::snprintf(text, sizeof text, "%.1f s", seconds);
    return text;
}

std::string Code(unsigned exitCode) {
    char text[32];
    std::snprintf(text, sizeof text, exitCode > 0xFFFF ? "0x%08X" : "%u", exitCode);
    return text;
}

// The lines of a text, each moved to the right.
std::string Indented(const std::string& text) {
    std::string moved = "    ";
    for (const char c : text) {
        moved += c;
        if (c == '\n') moved += "    ";
    }
    return moved + "\n";
}

std::string FailuresOf(const ProgramResult& result) {
    std::string text;
    if (const std::string fault = FaultOf(result); !fault.empty())
        text += "FAILED  " + result.name + ": " + fault + "\n\n";
    if (!result.cases) return text;
    for (const NotedCase& failed : result.cases->failed) {
        text += "FAILED  " + result.name + ": " + failed.name + "\n" + Indented(failed.text) + "\n";
    }
    return text;
}

std::string SkippedOf(const ProgramResult& result) {
    std::string text;
    if (!result.cases) return text;
    for (const NotedCase& skipped : result.cases->skipped) {
        // The place in the source stands before the reason.
        const std::size_t reason = skipped.text.find('\n');
        text += "skipped " + result.name + ": " + skipped.name + ": " +
                (reason == std::string::npos ? skipped.text : skipped.text.substr(reason + 1)) + "\n";
    }
    return text;
}

}  // namespace

std::string FaultOf(const ProgramResult& result) {
    switch (result.end) {
        case EndKind::NotStarted:
            return "it could not be started, error " + Code(result.exitCode);
        case EndKind::TooLate:
            return "it was still running after " + Seconds(result.seconds) + " and was ended";
        case EndKind::Exited:
            break;
    }
    const std::string exit = "it ended with exit code " + Code(result.exitCode);
    if (!result.cases) return exit + " and left no list of its tests";
    if (result.cases->Total() == 0) return "it ran no test";
    if (result.exitCode != 0 && result.cases->failed.empty()) return exit + ", though no test failed";
    return {};
}

Totals TotalsOf(const ProgramResult& result) {
    Totals totals;
    if (result.cases) {
        totals.passed = result.cases->passed;
        totals.failed = static_cast<int>(result.cases->failed.size());
        totals.skipped = static_cast<int>(result.cases->skipped.size());
    }
    if (!FaultOf(result).empty()) ++totals.failed;
    return totals;
}

Totals TotalsOf(const std::vector<ProgramResult>& results) {
    Totals all;
    for (const ProgramResult& result : results) {
        const Totals totals = TotalsOf(result);
        all.passed += totals.passed;
        all.failed += totals.failed;
        all.skipped += totals.skipped;
    }
    return all;
}

std::string InWords(const Totals& totals) {
    return std::to_string(totals.passed) + " passed, " + std::to_string(totals.failed) + " failed, " +
           std::to_string(totals.skipped) + " skipped";
}

bool IsGood(const Totals& totals) {
    return totals.passed > 0 && totals.failed == 0;
}

std::string ProgressLine(const ProgramResult& result) {
    const std::string fault = FaultOf(result);
    return Padded(result.name, kNameWidth) + InWords(TotalsOf(result)) + " (" + Seconds(result.seconds) +
           ")" + (fault.empty() ? "" : ": " + fault);
}

std::string ReportOf(const std::vector<Fact>& machine, const std::vector<ProgramResult>& results) {
    std::string text;
    for (const Fact& fact : machine) text += Padded(fact.name, kNameWidth) + fact.value + "\n";
    text += "\n";
    for (const ProgramResult& result : results) text += ProgressLine(result) + "\n";
    text += "\n";
    for (const ProgramResult& result : results) text += FailuresOf(result);
    std::string skipped;
    for (const ProgramResult& result : results) skipped += SkippedOf(result);
    if (!skipped.empty()) text += skipped + "\n";
    return text + InWords(TotalsOf(results)) + "\n";
}

}  // namespace plotvane::kit
