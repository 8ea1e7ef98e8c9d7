#pragma once

#include <windows.h>

#include <chrono>
#include <filesystem>
#include <string>

#include "tests/system/support/Handle.h"

namespace plotvane::test {

// The folder that holds the programs under test: the one of this test program.
std::filesystem::path ProgramFolder();

// A process started in a folder of the test's choice. It ends with this object, and so does everything that
// it started itself.
class ChildProcess {
public:
    // `commandLine` names the program first, quoted where needed. `inheritedPipe`, if any, becomes the C
    // run-time's descriptor `descriptor` of the process (0..63), as a parent's _spawn would hand it over.
    // Throws std::runtime_error if the process cannot be started.
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
