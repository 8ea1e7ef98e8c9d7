// run-tests [SECONDS]: runs every test program beside it, one after the other, each for at most SECONDS
// (900 by default), and says how each has ended. Leaves report.txt beside it and, in the folder
// "results", what each program has written. Its exit code is 0 only if something ran and nothing failed.
#include <windows.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <vector>

#include "tests/kit/Machine.h"
#include "tests/kit/TestProgram.h"
#include "tests/support/ProgramFolder.h"

namespace plotvane::kit {
namespace {

constexpr std::chrono::seconds kUsualLimit{900};

std::vector<std::filesystem::path> TestProgramsIn(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> programs;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().filename().wstring().ends_with(L"_tests.exe")) programs.push_back(entry.path());
    }
    std::ranges::sort(programs);
    return programs;
}

void Say(const std::string& line) {
    std::printf("%s\n", line.c_str());
    std::fflush(stdout);
}

// A crash ends a program and opens no window that somebody would have to close. The screens' true scaling is
// told only to a program that says that it knows what to do with it. Programs that this one starts inherit
// the first of the two.
void PrepareProcess() {
    ::SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    ::SetProcessDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
}

int RunAll(std::chrono::seconds limit) {
    const std::filesystem::path folder = test::ProgramFolder();
    const std::filesystem::path resultFolder = folder / "results";
    std::filesystem::create_directories(resultFolder);
    const std::vector<std::filesystem::path> programs = TestProgramsIn(folder);
    Say(std::to_string(programs.size()) +
        " test programs; windows will open and close by themselves. Please leave\n" +
        "mouse and keyboard alone until the last line says how many tests have passed.\n");

    const std::vector<Fact> machine = FactsOfThisMachine();
    std::vector<ProgramResult> results;
    for (const auto& program : programs) {
        results.push_back(RunTestProgram(program, resultFolder, limit));
        Say(ProgressLine(results.back()));
    }
    const std::filesystem::path report = folder / "report.txt";
    std::ofstream file(report);  // in the system's line ends: people open it in an editor
    file << ReportOf(machine, results);
    file.close();
    const Totals totals = TotalsOf(results);
    Say(file ? "\nThe report is in report.txt, what each program wrote in the folder results."
             : "\nreport.txt could not be written.");
    Say(InWords(totals));
    return IsGood(totals) && file ? 0 : 1;
}

}  // namespace
}  // namespace plotvane::kit

int main(int argc, char** argv) {
    using namespace plotvane::kit;
    const long seconds = argc > 1 ? std::strtol(argv[1], nullptr, 10) : 0;
    PrepareProcess();
    try {
        return RunAll(seconds > 0 ? std::chrono::seconds(seconds) : kUsualLimit);
    } catch (const std::exception& error) {
        std::printf("run-tests could not work: %s\n", error.what());
        return 1;
    }
}
