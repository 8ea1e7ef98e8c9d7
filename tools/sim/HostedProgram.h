#pragma once

#include <windows.h>

#include <filesystem>
#include <optional>

namespace plotvane {

// The program that the host has started. It keeps running when this object is destroyed.
class HostedProgram {
public:
    HostedProgram() = default;
    HostedProgram(const HostedProgram&) = delete;
    HostedProgram& operator=(const HostedProgram&) = delete;
    ~HostedProgram();

    // Starts the program in the folder. It inherits one low-level descriptor of the C run-time library with
    // its handle, and nothing else. 0, or the system's error code.
    DWORD Start(const std::filesystem::path& program, const std::filesystem::path& folder, int descriptor,
                HANDLE handle);

    // Waits for the program to end, at most for this time. True if it has ended.
    bool WaitForEnd(DWORD milliseconds) const;

    // Nothing while the program runs.
    std::optional<DWORD> ExitCode() const;

private:
    HANDLE m_process = nullptr;
};

}  // namespace plotvane
