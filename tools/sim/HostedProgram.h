#pragma once

#include <windows.h>

#include <filesystem>
#include <optional>

namespace plotvane {

// The program that the host has started. It is left alone when this object goes.
class HostedProgram {
public:
    HostedProgram() = default;
    HostedProgram(const HostedProgram&) = delete;
    HostedProgram& operator=(const HostedProgram&) = delete;
    ~HostedProgram();

    // Starts the program in the folder, with one low-level descriptor of the C run-time library and the
    // handle behind it; it inherits nothing else. 0, or the system's error code.
    DWORD Start(const std::filesystem::path& program, const std::filesystem::path& folder, int descriptor,
                HANDLE handle);

    // Waits for its end, no longer than that. True if it has ended.
    bool WaitForEnd(DWORD milliseconds) const;

    // Nothing while it runs.
    std::optional<DWORD> ExitCode() const;

private:
    HANDLE m_process = nullptr;
};

}  // namespace plotvane
