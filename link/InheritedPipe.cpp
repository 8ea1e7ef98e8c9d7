#include "link/InheritedPipe.h"

#include <fcntl.h>
#include <io.h>

#include <algorithm>
#include <cstdlib>

namespace plotvane {
namespace {

// A number in the exchange file that is no open descriptor must read as a closed pipe, not end the process.
void IgnoreInvalidParameter(const wchar_t*, const wchar_t*, const wchar_t*, unsigned, uintptr_t) {}

}  // namespace

InheritedPipe::InheritedPipe() {
    _set_invalid_parameter_handler(IgnoreInvalidParameter);
}

void InheritedPipe::Attach(int descriptor) {
    m_descriptor = descriptor;
    const intptr_t handle = descriptor < 0 ? -1 : _get_osfhandle(descriptor);
    // -2 stands for a standard stream that is connected to nothing.
    m_handle = handle == -1 || handle == -2 ? INVALID_HANDLE_VALUE : reinterpret_cast<HANDLE>(handle);
    m_type = m_handle == INVALID_HANDLE_VALUE ? FILE_TYPE_UNKNOWN : ::GetFileType(m_handle);
    if (m_type != FILE_TYPE_UNKNOWN) _setmode(descriptor, _O_BINARY);
}

int InheritedPipe::TryRead(std::span<char> buffer) {
    auto wanted = static_cast<unsigned>(buffer.size());
    switch (m_type) {
        case FILE_TYPE_DISK:
            break;  // a file holds its bytes ready: they are read without asking
        case FILE_TYPE_PIPE: {
            // A socket counts as a pipe too, but cannot be asked.
            DWORD available = 0;
            if (!::PeekNamedPipe(m_handle, nullptr, 0, nullptr, &available, nullptr)) return kEndOfStream;
            if (available == 0) return 0;
            wanted = std::min<unsigned>(wanted, available);
            break;
        }
        default:
            return kEndOfStream;  // reading a console, or another device, would wait for somebody to type
    }
    const int count = _read(m_descriptor, buffer.data(), wanted);
    return count > 0 ? count : kEndOfStream;
}

}  // namespace plotvane
