#include "tests/kit/TestProgram.h"

#include <windows.h>

#include <array>
#include <optional>
#include <string>

#include "tests/support/TempFolder.h"
#include "tests/support/system/Handle.h"

namespace plotvane::kit {
namespace {

using test::Handle;

// What a program of the kit starts ends with the job.
Handle MakeJob() {
    Handle job(::CreateJobObjectW(nullptr, nullptr));
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    ::SetInformationJobObject(job.Get(), JobObjectExtendedLimitInformation, &limits, sizeof limits);
    return job;
}

Handle OpenLog(const std::filesystem::path& file) {
    SECURITY_ATTRIBUTES inheritable{sizeof inheritable, nullptr, TRUE};
    return Handle(::CreateFileW(file.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inheritable, CREATE_ALWAYS,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
}

// A working folder for a test program, for as long as the object lives. GoogleTest opens its file by the
// bytes of its whole path, which does not work with an umlaut in it; so the path must have plain letters
// only, on every system.
class PlainFolder {
public:
    PlainFolder() {
        std::array<wchar_t, MAX_PATH> common{};
        ::GetEnvironmentVariableW(L"ProgramData", common.data(), static_cast<DWORD>(common.size()));
        m_path = std::filesystem::path(common.data()) /
                 (L"plotvane-tests-" + std::to_wstring(::GetCurrentProcessId()));
        std::filesystem::create_directories(m_path);
    }
    ~PlainFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    PlainFolder(const PlainFolder&) = delete;
    PlainFolder& operator=(const PlainFolder&) = delete;

    const std::filesystem::path& Path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

constexpr const wchar_t* kCases = L"cases.xml";

std::wstring CommandLine(const std::filesystem::path& program) {
    return L'"' + program.wstring() + L"\" --gtest_color=no --gtest_output=xml:" + kCases;
}

// Gives the list of cases its place among the results, if there is one.
std::optional<CaseList> TakeCases(const std::filesystem::path& written, const std::filesystem::path& kept) {
    const std::string xml = test::BytesOf(written);
    if (!xml.empty()) test::WriteBytes(kept, xml);
    return ReadCases(xml);
}

bool Start(std::wstring command, const std::filesystem::path& folder, HANDLE log,
           PROCESS_INFORMATION& started) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = startup.hStdError = log;
    return ::CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, CREATE_SUSPENDED, nullptr,
                            folder.c_str(), &startup, &started) != 0;
}

}  // namespace

ProgramResult RunTestProgram(const std::filesystem::path& program, const std::filesystem::path& folder,
                             std::chrono::seconds limit) {
    ProgramResult result;
    result.name = program.stem().string();
    const std::filesystem::path cases = folder / (result.name + ".xml");
    std::error_code ignored;
    std::filesystem::remove(cases, ignored);  // of an earlier run

    const PlainFolder working;
    const auto began = std::chrono::steady_clock::now();
    const Handle log = OpenLog(folder / (result.name + ".log"));
    PROCESS_INFORMATION started{};
    if (!Start(CommandLine(program), working.Path(), log.Get(), started)) {
        result.end = EndKind::NotStarted;
        result.exitCode = ::GetLastError();
        return result;
    }
    const Handle process(started.hProcess);
    const Handle thread(started.hThread);
    {
        const Handle job = MakeJob();
        ::AssignProcessToJobObject(job.Get(), process.Get());  // before it runs, so that no child escapes
        ::ResumeThread(thread.Get());
        const auto milliseconds = std::chrono::milliseconds(limit).count();
        if (::WaitForSingleObject(process.Get(), static_cast<DWORD>(milliseconds)) != WAIT_OBJECT_0)
            result.end = EndKind::TooLate;
        ::TerminateJobObject(job.Get(), 1);
    }
    ::WaitForSingleObject(process.Get(), INFINITE);
    result.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - began).count();
    DWORD code = 0;
    ::GetExitCodeProcess(process.Get(), &code);
    result.exitCode = code;
    result.cases = TakeCases(working.Path() / kCases, cases);
    return result;
}

}  // namespace plotvane::kit
