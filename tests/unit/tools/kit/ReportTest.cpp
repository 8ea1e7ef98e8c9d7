#include "tests/kit/Report.h"

#include <gtest/gtest.h>

namespace plotvane::kit {
namespace {

ProgramResult Good() {
    ProgramResult result;
    result.name = "unit_tests";
    result.seconds = 9.25;
    result.cases = CaseList{836, {}, {}};
    return result;
}

ProgramResult WithAFailure() {
    ProgramResult result;
    result.name = "windows_tests";
    result.exitCode = 1;
    result.seconds = 3;
    result.cases =
        CaseList{10, {{"Gdi.Frees", "Gdi.cpp:3\nit keeps a pen"}}, {{"Gdi.Prints", "Gdi.cpp:9\nno paper"}}};
    return result;
}

ProgramResult Crashed() {
    ProgramResult result;
    result.name = "memory_tests";
    result.exitCode = 0xC0000005;
    result.seconds = 1;
    return result;
}

TEST(Report, OfGoodProgramsSumsUpTheirCases) {
    const Totals totals = TotalsOf({Good(), Good()});
    EXPECT_EQ(InWords(totals), "1672 passed, 0 failed, 0 skipped");
    EXPECT_TRUE(IsGood(totals));
    EXPECT_EQ(FaultOf(Good()), "");
}

TEST(Report, OfAFailureIsNotGood) {
    const Totals totals = TotalsOf({Good(), WithAFailure()});
    EXPECT_EQ(InWords(totals), "846 passed, 1 failed, 1 skipped");
    EXPECT_FALSE(IsGood(totals));
    EXPECT_EQ(FaultOf(WithAFailure()), "") << "its failed test says it all";
}

TEST(Report, CountsAProgramWithAFaultOfItsOwnAsAFailure) {
    EXPECT_EQ(FaultOf(Crashed()), "it ended with exit code 0xC0000005 and left no list of its tests");
    EXPECT_EQ(InWords(TotalsOf(Crashed())), "0 passed, 1 failed, 0 skipped");

    ProgramResult late = Crashed();
    late.end = EndKind::TooLate;
    EXPECT_EQ(FaultOf(late), "it was still running after 1.0 s and was ended");
    EXPECT_EQ(TotalsOf(late).failed, 1);

    ProgramResult missing = Crashed();
    missing.end = EndKind::NotStarted;
    missing.exitCode = 2;
    EXPECT_EQ(FaultOf(missing), "it could not be started, error 2");

    ProgramResult empty = Good();
    empty.cases = CaseList{};
    EXPECT_EQ(FaultOf(empty), "it ran no test");

    ProgramResult atItsEnd = Good();
    atItsEnd.exitCode = 3;
    EXPECT_EQ(FaultOf(atItsEnd), "it ended with exit code 3, though no test failed");
    EXPECT_EQ(InWords(TotalsOf(atItsEnd)), "836 passed, 1 failed, 0 skipped");
}

TEST(Report, OfNothingIsNotGood) {
    EXPECT_FALSE(IsGood(TotalsOf(std::vector<ProgramResult>())));
    EXPECT_FALSE(IsGood({0, 0, 4}));
}

TEST(Report, ReadsFromTheMachineToTheTotals) {
    EXPECT_EQ(
        ReportOf({{"system", "Windows 11"}, {"screen", "1920 x 1080, 150 %"}},
                 {Crashed(), Good(), WithAFailure()}),
        "system                Windows 11\n"
        "screen                1920 x 1080, 150 %\n"
        "\n"
        "memory_tests          0 passed, 1 failed, 0 skipped (1.0 s): it ended with exit code 0xC0000005 "
        "and left no list of its tests\n"
        "unit_tests            836 passed, 0 failed, 0 skipped (9.2 s)\n"
        "windows_tests         10 passed, 1 failed, 1 skipped (3.0 s)\n"
        "\n"
        "FAILED  memory_tests: it ended with exit code 0xC0000005 and left no list of its tests\n"
        "\n"
        "FAILED  windows_tests: Gdi.Frees\n"
        "    Gdi.cpp:3\n"
        "    it keeps a pen\n"
        "\n"
        "skipped windows_tests: Gdi.Prints: no paper\n"
        "\n"
        "846 passed, 2 failed, 1 skipped\n");
}

}  // namespace
}  // namespace plotvane::kit
