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
    if (m_handle != INVALID_HANDLE_VALUE) _setmode(descriptor, _O_BINARY);
}

int InheritedPipe::TryRead(std::span<char> buffer) {
    if (m_handle == INVALID_HANDLE_VALUE) return kEndOfStream;
    auto wanted = static_cast<unsigned>(buffer.size());
    DWORD available = 0;
    if (::PeekNamedPipe(m_handle, nullptr, 0, nullptr, &available, nullptr)) {
        if (available == 0) return 0;
        wanted = std::min<unsigned>(wanted, available);
    } else if (::GetLastError() == ERROR_BROKEN_PIPE) {
        return kEndOfStream;
    }
    // Not a pipe at all, such as a file, holds its data ready: it is read without asking.
    const int count = _read(m_descriptor, buffer.data(), wanted);
    return count > 0 ? count : kEndOfStream;
}

}  // namespace plotvane
