// The program's build options stop an overrun of a buffer before it does harm.
#include <gtest/gtest.h>
#include <windows.h>

#include <string_view>

#include "tests/support/ProgramFolder.h"
#include "tests/support/TempFolder.h"
#include "tests/support/system/Await.h"
#include "tests/support/system/ChildProcess.h"

namespace plotvane::test {
namespace {

constexpr DWORD kStackBufferOverrun = 0xC0000409;

class Overrun : public testing::TestWithParam<const char*> {
protected:
    // The exit code of a process that writes this many bytes into an array of sixteen.
    static DWORD Write(int bytes) {
        const std::string_view how = GetParam();
        const TempFolder folder;
        const ChildProcess process(L'"' + (ProgramFolder() / "overrun.exe").wstring() + L"\" " +
                                       std::wstring(how.begin(), how.end()) + L" " + std::to_wstring(bytes),
                                   folder.Path());
        EXPECT_TRUE(process.EndsWithin(kDeadline));
        return process.ExitCode();
    }
};

TEST_P(Overrun, OfABufferThatIsLargeEnoughDoesNotHappen) {
    EXPECT_EQ(Write(15), 0u);
}

TEST_P(Overrun, EndsTheProcess) {
    EXPECT_EQ(Write(64), kStackBufferOverrun);
}

INSTANTIATE_TEST_SUITE_P(Of, Overrun, testing::Values("stack", "memory", "text"),
                         [](const auto& info) { return std::string(info.param); });

}  // namespace
}  // namespace plotvane::test
