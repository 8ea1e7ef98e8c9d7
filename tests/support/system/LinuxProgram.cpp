#include "tests/support/system/LinuxProgram.h"

#include <windows.h>

namespace plotvane::test {

void StartLinuxProgram(const std::wstring& name, const std::wstring& arguments,
                       const std::filesystem::path& folder) {
    const std::wstring program = L"Z:\\bin\\" + name;
    std::wstring command = name + L' ' + arguments;
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    ::CreateProcessW(program.c_str(), command.data(), nullptr, nullptr, FALSE, 0, nullptr, folder.c_str(),
                     &startup, &started);
}

}  // namespace plotvane::test
