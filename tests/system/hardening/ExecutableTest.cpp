// What the finished program tells Windows about itself, and what compiler and linker have built into it.
#include <gtest/gtest.h>
#include <windows.h>

#include <cstring>

#include "tests/support/ProgramFolder.h"
#include "tests/support/system/ChildProcess.h"
#include "tests/support/system/Executable.h"
#include "tests/support/system/KnownLibraries.h"

namespace plotvane::test {
namespace {

const Executable& Program() {
    static const Executable program(ProgramFolder() / "plotvane.exe");
    return program;
}

TEST(Executable, IsLoadedAtAnotherAddressInEachRunAnywhereIn64Bits) {
    EXPECT_TRUE(Program().DllFlags() & IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE);
    EXPECT_TRUE(Program().DllFlags() & IMAGE_DLLCHARACTERISTICS_HIGH_ENTROPY_VA);
    EXPECT_TRUE(Program().FileFlags() & IMAGE_FILE_LARGE_ADDRESS_AWARE);
    // Without relocations Windows could not load it at another address.
    EXPECT_FALSE(Program().FileFlags() & IMAGE_FILE_RELOCS_STRIPPED);
    EXPECT_GT(Program().SizeOfDirectory(IMAGE_DIRECTORY_ENTRY_BASERELOC), 0u);
}

TEST(Executable, HasNothingThatCanBeBothWrittenAndRun) {
    EXPECT_TRUE(Program().DllFlags() & IMAGE_DLLCHARACTERISTICS_NX_COMPAT);
    constexpr DWORD kBoth = IMAGE_SCN_MEM_WRITE | IMAGE_SCN_MEM_EXECUTE;
    for (const Executable::Section& section : Program().Sections()) {
        EXPECT_NE(section.flags & kBoth, kBoth) << section.name;
    }
}

TEST(Executable, NeedsNoShimsOnATerminalServer) {
    EXPECT_TRUE(Program().DllFlags() & IMAGE_DLLCHARACTERISTICS_TERMINAL_SERVER_AWARE);
}

TEST(Executable, GuardsItsCallsWhereTheCompilerCan) {
#ifdef PLOTVANE_GUARDED_CALLS
    constexpr bool kGuarded = true;
#else
    constexpr bool kGuarded = false;
#endif
    EXPECT_EQ((Program().DllFlags() & IMAGE_DLLCHARACTERISTICS_GUARD_CF) != 0, kGuarded);
}

// Windows would look for any other library beside the program first.
TEST(Executable, ImportsOnlyWhatWindowsTakesFromItsOwnFolder) {
    const std::set<std::string> imports = Program().Imports();
    EXPECT_TRUE(imports.contains("kernel32.dll"));
    for (const std::string& library : imports) {
        EXPECT_TRUE(library == kCommonControls || KnownLibraries().contains(library)) << library;
    }
    EXPECT_EQ(Program().SizeOfDirectory(IMAGE_DIRECTORY_ENTRY_DELAY_IMPORT), 0u);
    EXPECT_EQ(Program().SizeOfDirectory(IMAGE_DIRECTORY_ENTRY_BOUND_IMPORT), 0u);
}

// The manifest names their version, so Windows takes them from its side-by-side store.
TEST(Executable, NamesTheCommonControlsInItsManifest) {
    EXPECT_TRUE(Program().Imports().contains(kCommonControls));
    EXPECT_TRUE(Program().Contains("name=\"Microsoft.Windows.Common-Controls\" version=\"6.0.0.0\""));
    EXPECT_TRUE(Program().Contains("publicKeyToken=\"6595b64144ccf1df\""));
}

// The program runs this when a check of its stack fails: mov ecx, 2; int 29h.
constexpr std::string_view kEndOfOverrun("\xB9\x02\x00\x00\x00\xCD\x29", 7);

// Counts the calls and jumps with a distance of 32 bits that lead to an offset in the code.
int CountCalls(std::string_view code, std::size_t to) {
    int calls = 0;
    for (std::size_t at = 0; at + 5 <= code.size(); ++at) {
        if (code[at] != '\xE8' && code[at] != '\xE9') continue;
        std::int32_t distance = 0;
        std::memcpy(&distance, code.data() + at + 1, sizeof distance);
        if (static_cast<std::int64_t>(at) + 5 + distance == static_cast<std::int64_t>(to)) ++calls;
    }
    return calls;
}

TEST(Executable, ChecksItsStackInHundredsOfFunctions) {
    const std::string_view code = Program().BytesOf(".text");
    int calls = 0;
    for (std::size_t at = code.find(kEndOfOverrun); at != std::string_view::npos;
         at = code.find(kEndOfOverrun, at + 1)) {
        calls += CountCalls(code, at);
    }
    EXPECT_GT(calls, 100);
}

}  // namespace
}  // namespace plotvane::test
