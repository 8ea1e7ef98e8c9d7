#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "tests/support/system/Handle.h"

namespace plotvane::test {

constexpr std::size_t kBlockBytes = 513;

// The host's side of the exchange, byte by byte: the pipe whose read end the program inherits, and the named
// mutex that says that the host is running. For a whole drive use diagnel-sim; this class lets a test look
// between two bytes.
class PipeHost {
public:
    PipeHost();

    HANDLE ReadEnd() const { return m_read.Get(); }  // inheritable

    void Send(std::string_view bytes);       // as they are
    void SendRecord(std::string_view text);  // padded with NULs to a block of 513 bytes
    void StopSending() { Send("\xFE"); }
    void SendClosing() { Send("\xFD"); }
    // Makes the host die: the last write end of the pipe is closed.
    void Die() { m_write.Close(); }

    // The number of bytes in the pipe that the program has not read.
    DWORD Unread() const;

private:
    Handle m_mutex;
    Handle m_read;
    Handle m_write;
};

// A normal record of one group: four fields in slots 0..3, the other eight empty.
std::string RecordOf(std::string_view identifier, std::string_view fields);

}  // namespace plotvane::test
