// The runner of the kit, with programs beside it that only pretend to test.
#include <gtest/gtest.h>

#include <initializer_list>

#include "tests/support/ProgramFolder.h"
#include "tests/support/TempFolder.h"
#include "tests/support/system/Await.h"
#include "tests/support/system/ChildProcess.h"

namespace plotvane::test {
namespace {

class RunTests : public testing::Test {
protected:
    // Runs the runner in a folder of any letters, with these programs beside it; its exit code.
    DWORD RunWith(std::initializer_list<const char*> programs) {
        std::filesystem::create_directory(m_folder);
        std::filesystem::copy_file(ProgramFolder() / "run-tests.exe", m_folder / "run-tests.exe");
        for (const char* const program : programs)
            std::filesystem::copy_file(ProgramFolder() / "pretend.exe", m_folder / program);
        const ChildProcess runner(L'"' + (m_folder / "run-tests.exe").wstring() + L"\" 2", m_above.Path());
        EXPECT_TRUE(runner.EndsWithin(kDeadline));
        return runner.ExitCode();
    }
    std::string Report() const {
        std::string report = BytesOf(m_folder / "report.txt");
        std::erase(report, '\r');
        return report;
    }
    bool Reports(std::string_view line) const { return Report().find(line) != std::string::npos; }
    std::string LastLine() const {
        const std::string report = Report();
        const std::size_t begin = report.rfind('\n', report.size() - 2) + 1;
        return report.substr(begin);
    }

    const TempFolder m_above;
    const std::filesystem::path m_folder = m_above.Path() / L"Pr\u00FCfstand \u0416 \u8ECA";
};

TEST_F(RunTests, SaysHowEveryTestHasEndedAndOnWhatMachine) {
    EXPECT_EQ(RunWith({"good_tests.exe"}), 0u);
    EXPECT_EQ(LastLine(), "1 passed, 0 failed, 1 skipped\n");
    EXPECT_TRUE(Reports("\nskipped good_tests: It.Waits: there is no bus\n")) << Report();
    EXPECT_TRUE(Report().starts_with("system ")) << Report();
    EXPECT_TRUE(Reports(", build ")) << Report();
    EXPECT_TRUE(Reports("\nscreen ")) << Report();
    EXPECT_TRUE(Reports("\nANSI code page        " + std::to_string(::GetACP()) + "\n")) << Report();
    EXPECT_EQ(BytesOf(m_folder / "results" / "good_tests.log"), "this is good_tests\r\n");
    EXPECT_NE(BytesOf(m_folder / "results" / "good_tests.xml"), "");
}

TEST_F(RunTests, TellsTheTextsOfFailuresAndGoesOn) {
    EXPECT_EQ(RunWith({"failing_tests.exe", "good_tests.exe"}), 1u);
    EXPECT_EQ(LastLine(), "1 passed, 1 failed, 1 skipped\n");
    EXPECT_TRUE(Reports("FAILED  failing_tests: It.Stops\n    It.cpp:2\n    \"red\" < green\n")) << Report();
}

TEST_F(RunTests, CountsAProgramThatCrashesAsFailed) {
    EXPECT_EQ(RunWith({"crashing_tests.exe", "good_tests.exe"}), 1u);
    EXPECT_EQ(LastLine(), "1 passed, 1 failed, 1 skipped\n");
    EXPECT_TRUE(Reports("crashing_tests: it ended with exit code 0xC0000005 and left no list")) << Report();
    EXPECT_EQ(BytesOf(m_folder / "results" / "crashing_tests.log"), "this is crashing_tests\r\n");
}

TEST_F(RunTests, EndsAProgramThatHangsAndCountsItAsFailed) {
    EXPECT_EQ(RunWith({"good_tests.exe", "hanging_tests.exe"}), 1u);
    EXPECT_EQ(LastLine(), "1 passed, 1 failed, 1 skipped\n");
    EXPECT_TRUE(Reports("FAILED  hanging_tests: it was still running after 2")) << Report();
}

TEST_F(RunTests, IsNotContentWithNoTests) {
    EXPECT_EQ(RunWith({}), 1u);
    EXPECT_EQ(LastLine(), "0 passed, 0 failed, 0 skipped\n");
}

TEST_F(RunTests, IsNotContentWithAProgramThatRanNone) {
    EXPECT_EQ(RunWith({"empty_tests.exe", "good_tests.exe"}), 1u);
    EXPECT_TRUE(Reports("FAILED  empty_tests: it ran no test\n")) << Report();
}

}  // namespace
}  // namespace plotvane::test
