#include "tests/support/system/ChildProcess.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

namespace plotvane::test {

std::vector<BYTE> DescriptorBlock(HANDLE pipe, int descriptor, std::size_t handleSize) {
    constexpr BYTE kOpenPipe = 0x01 | 0x08;
    const auto count = static_cast<std::size_t>(descriptor) + 1;
    std::vector<BYTE> block(sizeof(int) + count + count * handleSize, 0xFF);
    const int number = descriptor + 1;
    std::memcpy(block.data(), &number, sizeof number);
    std::fill_n(block.begin() + sizeof(int), count, BYTE{0});
    block[sizeof(int) + count - 1] = kOpenPipe;
    // The descriptors before this one are not open.
    std::memcpy(block.data() + block.size() - handleSize, &pipe, handleSize);
    return block;
}

ChildProcess::ChildProcess(std::wstring commandLine, const std::filesystem::path& folder,
                           std::vector<BYTE> descriptors)
    : m_job(::CreateJobObjectW(nullptr, nullptr)) {
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    ::SetInformationJobObject(m_job.Get(), JobObjectExtendedLimitInformation, &limits, sizeof limits);

    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    if (!descriptors.empty()) {
        startup.lpReserved2 = descriptors.data();
        startup.cbReserved2 = static_cast<WORD>(descriptors.size());
    }
    PROCESS_INFORMATION started{};
    const auto starts = [&] {
        return ::CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, !descriptors.empty(),
                                CREATE_SUSPENDED, nullptr, folder.c_str(), &startup, &started) != 0;
    };
    // In one of some thousand starts Wine's own loader ends before the program has begun, and Wine reports
    // an internal error. The program has not run then, so this says nothing about it.
    if (!starts() && (::GetLastError() != ERROR_INTERNAL_ERROR || !starts())) {
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
    // The mutex of this program must be gone before the next test starts the program again.
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
