#pragma once

#include <windows.h>

#include <chrono>
#include <filesystem>
#include <string>

#include "tests/system/support/Handle.h"

namespace plotvane::test {

// The folder of the programs under test, which is also that of this test program.
std::filesystem::path ProgramFolder();

// A process started in a given folder. The destructor ends it and everything that it has started.
class ChildProcess {
public:
    // `commandLine` begins with the program, quoted if needed. `inheritedPipe`, if any, becomes descriptor
    // `descriptor` (0..63) of the process's C run-time, as a parent's _spawn would pass it. Throws
    // std::runtime_error if the process cannot be started.
    ChildProcess(std::wstring commandLine, const std::filesystem::path& folder,
                 HANDLE inheritedPipe = nullptr, int descriptor = -1);
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    DWORD Id() const { return m_id; }
    bool Running() const;
    bool EndsWithin(std::chrono::milliseconds time) const;
    DWORD ExitCode() const;  // STILL_ACTIVE while it runs

private:
    Handle m_job;
    Handle m_process;
    DWORD m_id = 0;
};

}  // namespace plotvane::test
