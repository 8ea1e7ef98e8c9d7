#include "tools/sim/HostedProgram.h"

#include <cstring>
#include <string>
#include <vector>

namespace plotvane {
namespace {

// The form in which a C run-time library passes its descriptors to that of a started program: a count, a byte
// of flags for each descriptor, then a handle for each, without padding.
std::vector<BYTE> DescriptorBlock(int descriptor, HANDLE handle) {
    constexpr BYTE kOpen = 0x01;
    constexpr BYTE kPipe = 0x08;  // without 0x80, text mode: a block may hold any byte
    const int count = descriptor + 1;
    const auto size = static_cast<std::size_t>(count);
    std::vector<BYTE> block(sizeof count + size * (1 + sizeof handle));
    std::memcpy(block.data(), &count, sizeof count);
    block[sizeof count + size - 1] = kOpen | kPipe;
    BYTE* const handles = block.data() + sizeof count + size;
    const HANDLE none = INVALID_HANDLE_VALUE;
    for (std::size_t i = 0; i < size; ++i) {
        const HANDLE& entry = i + 1 == size ? handle : none;
        std::memcpy(handles + i * sizeof entry, &entry, sizeof entry);
    }
    return block;
}

// Limits inheritance to one handle. Without this list, the program would inherit every inheritable handle of
// this process.
class InheritedHandles {
public:
    explicit InheritedHandles(HANDLE handle) : m_handle(handle) {
        SIZE_T size = 0;
        InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
        m_bytes.resize(size);
        if (InitializeProcThreadAttributeList(List(), 1, 0, &size) == 0) return;
        m_initialised = true;
        m_valid = UpdateProcThreadAttribute(List(), 0, PROC_THREAD_ATTRIBUTE_HANDLE_LIST, &m_handle,
                                            sizeof m_handle, nullptr, nullptr) != 0;
    }
    InheritedHandles(const InheritedHandles&) = delete;
    InheritedHandles& operator=(const InheritedHandles&) = delete;
    ~InheritedHandles() {
        if (m_initialised) DeleteProcThreadAttributeList(List());
    }

    bool IsValid() const { return m_valid; }
    LPPROC_THREAD_ATTRIBUTE_LIST List() {
        return reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(m_bytes.data());
    }

private:
    HANDLE m_handle;
    std::vector<BYTE> m_bytes;
    bool m_initialised = false;
    bool m_valid = false;
};

}  // namespace

HostedProgram::~HostedProgram() {
    if (m_process != nullptr) CloseHandle(m_process);
}

DWORD HostedProgram::Start(const std::filesystem::path& program, const std::filesystem::path& folder,
                           int descriptor, HANDLE handle) {
    std::vector<BYTE> block = DescriptorBlock(descriptor, handle);
    InheritedHandles inherited(handle);
    if (!inherited.IsValid()) return GetLastError();

    STARTUPINFOEXW startup{};
    startup.StartupInfo.cb = sizeof startup;
    startup.StartupInfo.cbReserved2 = static_cast<WORD>(block.size());
    startup.StartupInfo.lpReserved2 = block.data();
    startup.lpAttributeList = inherited.List();
    std::wstring commandLine = L'"' + program.wstring() + L'"';
    PROCESS_INFORMATION process{};
    if (CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, TRUE,
                       EXTENDED_STARTUPINFO_PRESENT, nullptr, folder.c_str(), &startup.StartupInfo,
                       &process) == 0) {
        return GetLastError();
    }
    CloseHandle(process.hThread);
    m_process = process.hProcess;
    return 0;
}

bool HostedProgram::WaitForEnd(DWORD milliseconds) const {
    return WaitForSingleObject(m_process, milliseconds) != WAIT_TIMEOUT;
}

std::optional<DWORD> HostedProgram::ExitCode() const {
    DWORD code = 0;
    if (!WaitForEnd(0) || GetExitCodeProcess(m_process, &code) == 0) return std::nullopt;
    return code;
}

}  // namespace plotvane
