#pragma once

#include <windows.h>

#include <cstddef>
#include <string_view>

namespace plotvane {

// The pipe to the program. The program inherits only a descriptor of the read end: if it also inherited the
// write end, it would never see the end of the pipe.
class PipeToProgram {
public:
    PipeToProgram() = default;
    PipeToProgram(const PipeToProgram&) = delete;
    PipeToProgram& operator=(const PipeToProgram&) = delete;
    ~PipeToProgram();

    // Creates the pipe, in binary mode at both ends. False if the system refuses.
    bool Open();

    // The descriptor for the program; its number goes into the exchange file.
    int InheritedDescriptor() const { return m_inherited; }
    HANDLE InheritedHandle() const;
    // Call this once the program has its own copy.
    void DropInherited();

    // Whether this many bytes can be written without waiting for the program to read.
    bool HasRoomFor(std::size_t bytes) const;
    bool IsDrained() const { return Unread() == 0; }
    bool IsOpen() const { return m_write >= 0; }
    // Writes all of the bytes; false if the pipe is closed or broken.
    bool Write(std::string_view bytes);
    void CloseWriteEnd();

private:
    // The bytes that the program has not read yet. This end stays open only to count them.
    std::size_t Unread() const;

    int m_read = -1;
    int m_inherited = -1;
    int m_write = -1;
};

}  // namespace plotvane
