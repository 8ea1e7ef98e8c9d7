#pragma once

#include <windows.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/system/Handle.h"

namespace plotvane::test {

// The block in which a parent's C run-time hands an inheritable pipe to a new process as that descriptor
// (0..63). `handleSize` is 8, or 4 for a parent of 32 bits.
std::vector<BYTE> DescriptorBlock(HANDLE pipe, int descriptor, std::size_t handleSize = 8);

// A process started in a given folder. The destructor ends it and everything that it has started.
class ChildProcess {
public:
    // `commandLine` begins with the program, quoted if needed. With a block of descriptors, the process
    // inherits all inheritable handles. Throws std::runtime_error if the process cannot be started.
    ChildProcess(std::wstring commandLine, const std::filesystem::path& folder,
                 std::vector<BYTE> descriptors = {});
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
