// Stands in for a test program in the tests of the kit. What it does depends on its own name:
//
//   good_tests      writes a list of two tests, one of them skipped
//   failing_tests   writes a list of one test that failed, and ends with 1
//   crashing_tests  ends as by a fault, before it has written a list
//   hanging_tests   never ends
//   empty_tests     writes a list of no tests
#include <windows.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

constexpr const char* kHead = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites>\n";
constexpr const char* kTail = "</testsuites>\n";

// Writes the file that the option --gtest_output=xml:FILE asks for.
void WriteList(int argc, char** argv, const std::string& cases) {
    constexpr const char* kOption = "--gtest_output=xml:";
    for (int i = 1; i < argc; ++i) {
        const std::string option = argv[i];
        if (!option.starts_with(kOption)) continue;
        std::ofstream(option.substr(std::string(kOption).size())) << kHead << cases << kTail;
    }
}

// The folder's name may have letters that no narrow text of this system can hold.
std::string OwnName() {
    wchar_t file[MAX_PATH] = L"";
    ::GetModuleFileNameW(nullptr, file, MAX_PATH);
    return std::filesystem::path(file).stem().string();
}

}  // namespace

int main(int argc, char** argv) {
    const std::string name = OwnName();
    std::puts(("this is " + name).c_str());
    std::fflush(stdout);
    if (name == "good_tests") {
        WriteList(argc, argv,
                  "<testcase name=\"Goes\" status=\"run\" result=\"completed\" classname=\"It\" />\n"
                  "<testcase name=\"Waits\" status=\"run\" result=\"skipped\" classname=\"It\">\n"
                  "<skipped message=\"It.cpp:1&#x0A;there is no bus\"></skipped></testcase>\n");
    } else if (name == "failing_tests") {
        WriteList(argc, argv,
                  "<testcase name=\"Stops\" status=\"run\" result=\"completed\" classname=\"It\">\n"
                  "<failure message=\"It.cpp:2&#x0A;&quot;red&quot; &lt; green\" "
                  "type=\"\"></failure></testcase>\n");
        return 1;
    } else if (name == "crashing_tests") {
        // As Windows ends it after a fault, but without a debugger, which Wine would start first.
        ::TerminateProcess(::GetCurrentProcess(), EXCEPTION_ACCESS_VIOLATION);
    } else if (name == "hanging_tests") {
        ::Sleep(INFINITE);
    } else if (name == "empty_tests") {
        WriteList(argc, argv, "");
    }
    return 0;
}
