#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tests/kit/CaseList.h"

namespace plotvane::kit {

// The machine that the tests ran on, in words, one fact a line: "Windows", "10.0, build 19045".
struct Fact {
    std::string name;
    std::string value;
};

// How a test program has come to its end.
enum class EndKind {
    Exited,     // by itself
    TooLate,    // it was ended when its time was over
    NotStarted  // Windows could not start it
};

struct ProgramResult {
    std::string name;  // of the file, without ".exe"
    EndKind end = EndKind::Exited;
    unsigned exitCode = 0;  // if it has exited; else the number of Windows' error, or 0
    double seconds = 0;
    std::optional<CaseList> cases;  // nothing if it has left no whole list of them
};

struct Totals {
    int passed = 0;
    int failed = 0;
    int skipped = 0;
};

// What is wrong with a program beside its failed cases; empty if nothing is. A program with such a fault
// counts as one failure more.
std::string FaultOf(const ProgramResult& result);

Totals TotalsOf(const ProgramResult& result);
Totals TotalsOf(const std::vector<ProgramResult>& results);

// "12 passed, 1 failed, 0 skipped"
std::string InWords(const Totals& totals);

// Whether something ran and nothing failed.
bool IsGood(const Totals& totals);

// The line that a program gets while the tests run.
std::string ProgressLine(const ProgramResult& result);

// The whole report, with "\n" as line end; its last line is the totals in words.
std::string ReportOf(const std::vector<Fact>& machine, const std::vector<ProgramResult>& results);

}  // namespace plotvane::kit
