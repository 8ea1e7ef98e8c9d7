#include "link/InheritedPipe.h"

#include <io.h>

#include <algorithm>
#include <cstdlib>

#include "link/DescriptorBlock.h"

namespace plotvane {
namespace {

// A number in the exchange file that is no open descriptor must read as a closed pipe, not end the process.
void IgnoreInvalidParameter(const wchar_t*, const wchar_t*, const wchar_t*, unsigned, uintptr_t) {}

// The process owns these bytes; they never change.
std::span<const std::byte> StartUpBlock() {
    STARTUPINFOW startUp{};
    ::GetStartupInfoW(&startUp);
    if (!startUp.lpReserved2) return {};
    return {reinterpret_cast<const std::byte*>(startUp.lpReserved2), startUp.cbReserved2};
}

}  // namespace

InheritedPipe::InheritedPipe() : InheritedPipe(StartUpBlock()) {}

InheritedPipe::InheritedPipe(std::span<const std::byte> block) : m_block(block) {
    _set_invalid_parameter_handler(IgnoreInvalidParameter);
}

HANDLE InheritedPipe::HandleOf(int descriptor) const {
    const auto handle =
        m_block.empty() ? _get_osfhandle(descriptor) : InheritedHandleOf(m_block, descriptor).value_or(-1);
    // -2 stands for a standard stream that is connected to nothing.
    return handle == -1 || handle == -2 ? INVALID_HANDLE_VALUE : reinterpret_cast<HANDLE>(handle);
}

void InheritedPipe::Attach(int descriptor) {
    m_handle = descriptor < 0 ? INVALID_HANDLE_VALUE : HandleOf(descriptor);
    m_type = m_handle == INVALID_HANDLE_VALUE ? FILE_TYPE_UNKNOWN : ::GetFileType(m_handle);
}

int InheritedPipe::TryRead(std::span<char> buffer) {
    auto wanted = static_cast<DWORD>(buffer.size());
    switch (m_type) {
        case FILE_TYPE_DISK:
            break;  // a file holds its bytes ready: they are read without asking
        case FILE_TYPE_PIPE: {
            // A socket counts as a pipe too, but cannot be asked.
            DWORD available = 0;
            if (!::PeekNamedPipe(m_handle, nullptr, 0, nullptr, &available, nullptr)) return kEndOfStream;
            if (available == 0) return 0;
            wanted = std::min(wanted, available);
            break;
        }
        default:
            return kEndOfStream;  // reading a console, or another device, would wait for somebody to type
    }
    DWORD count = 0;
    if (!::ReadFile(m_handle, buffer.data(), wanted, &count, nullptr) || count == 0) return kEndOfStream;
    return static_cast<int>(count);
}

}  // namespace plotvane
