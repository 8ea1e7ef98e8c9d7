#include "tools/sim/PipeToProgram.h"

#include <fcntl.h>
#include <io.h>

namespace plotvane {
namespace {

// About 30 blocks: with more the chart would lag further behind after a pause.
constexpr unsigned kCapacity = 16 * 1024;

HANDLE HandleOf(int descriptor) {
    return reinterpret_cast<HANDLE>(_get_osfhandle(descriptor));
}

void Close(int& descriptor) {
    if (descriptor >= 0) _close(descriptor);
    descriptor = -1;
}

}  // namespace

PipeToProgram::~PipeToProgram() {
    CloseWriteEnd();
    DropInherited();
    Close(m_read);
}

bool PipeToProgram::Open() {
    int ends[2] = {-1, -1};
    if (_pipe(ends, kCapacity, _O_BINARY | _O_NOINHERIT) != 0) return false;
    m_read = ends[0];
    m_write = ends[1];
    m_inherited = _dup(m_read);  // the copy can be inherited even if the original cannot
    return m_inherited >= 0 &&
           SetHandleInformation(InheritedHandle(), HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT) != 0;
}

HANDLE PipeToProgram::InheritedHandle() const {
    return HandleOf(m_inherited);
}

void PipeToProgram::DropInherited() {
    Close(m_inherited);
}

void PipeToProgram::CloseWriteEnd() {
    Close(m_write);
}

std::size_t PipeToProgram::Unread() const {
    DWORD bytes = 0;
    if (PeekNamedPipe(HandleOf(m_read), nullptr, 0, nullptr, &bytes, nullptr) == 0) return 0;
    return bytes;
}

bool PipeToProgram::HasRoomFor(std::size_t bytes) const {
    return Unread() + bytes <= kCapacity;
}

bool PipeToProgram::Write(std::string_view bytes) {
    if (!IsOpen()) return false;
    const int written = _write(m_write, bytes.data(), static_cast<unsigned>(bytes.size()));
    return written >= 0 && static_cast<std::size_t>(written) == bytes.size();
}

}  // namespace plotvane
