#include "tests/system/support/ChildProcess.h"

#include <cstring>
#include <stdexcept>
#include <vector>

namespace plotvane::test {

namespace {

// The block in which a C run-time tells its child about inherited descriptors: their count as an int, one
// byte of flags for each, one handle for each.
std::vector<BYTE> DescriptorBlock(HANDLE pipe, int descriptor) {
    constexpr BYTE kOpenPipe = 0x01 | 0x08;
    const auto count = static_cast<std::size_t>(descriptor) + 1;
    std::vector<BYTE> block(sizeof(int) + count + count * sizeof(HANDLE), 0);
    const int number = descriptor + 1;
    std::memcpy(block.data(), &number, sizeof number);
    block[sizeof(int) + count - 1] = kOpenPipe;
    BYTE* const handles = block.data() + sizeof(int) + count;
    for (std::size_t i = 0; i < count; ++i) {
        HANDLE const handle = i + 1 == count ? pipe : INVALID_HANDLE_VALUE;
        std::memcpy(handles + i * sizeof handle, &handle, sizeof handle);
    }
    return block;
}

}  // namespace

std::filesystem::path ProgramFolder() {
    std::wstring path(MAX_PATH, L'\0');
    path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return std::filesystem::path(path).parent_path();
}

ChildProcess::ChildProcess(std::wstring commandLine, const std::filesystem::path& folder,
                           HANDLE inheritedPipe, int descriptor)
    : m_job(::CreateJobObjectW(nullptr, nullptr)) {
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    ::SetInformationJobObject(m_job.Get(), JobObjectExtendedLimitInformation, &limits, sizeof limits);

    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    std::vector<BYTE> block;
    if (inheritedPipe) {
        block = DescriptorBlock(inheritedPipe, descriptor);
        startup.lpReserved2 = block.data();
        startup.cbReserved2 = static_cast<WORD>(block.size());
    }
    PROCESS_INFORMATION started{};
    if (!::CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, inheritedPipe != nullptr,
                          CREATE_SUSPENDED, nullptr, folder.c_str(), &startup, &started)) {
        throw std::runtime_error("cannot start a process, error " + std::to_string(::GetLastError()));
    }
    m_process = Handle(started.hProcess);
    m_id = started.dwProcessId;
    const Handle thread(started.hThread);
    ::AssignProcessToJobObject(m_job.Get(), m_process.Get());  // before it runs, so that no child escapes
    ::ResumeThread(thread.Get());
}

ChildProcess::~ChildProcess() {
    ::TerminateJobObject(m_job.Get(), 1);
    // The mutex of this program must be gone before the next test starts one.
    JOBOBJECT_BASIC_ACCOUNTING_INFORMATION job{};
    for (int poll = 0; poll < 1000; ++poll) {
        if (!::QueryInformationJobObject(m_job.Get(), JobObjectBasicAccountingInformation, &job, sizeof job,
                                         nullptr) ||
            job.ActiveProcesses == 0) {
            break;
        }
        ::Sleep(5);
    }
}

bool ChildProcess::Running() const {
    return !EndsWithin(std::chrono::milliseconds(0));
}

bool ChildProcess::EndsWithin(std::chrono::milliseconds time) const {
    return ::WaitForSingleObject(m_process.Get(), static_cast<DWORD>(time.count())) == WAIT_OBJECT_0;
}

DWORD ChildProcess::ExitCode() const {
    DWORD code = 0;
    ::GetExitCodeProcess(m_process.Get(), &code);
    return code;
}

}  // namespace plotvane::test
