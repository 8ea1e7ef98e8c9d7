#pragma once

#include <windows.h>

#include <cstddef>
#include <string_view>

namespace plotvane {

// The pipe to the program. A descriptor of its read end is the only thing that the program inherits: were it
// to inherit the write end too, it would never meet the end of the pipe.
class PipeToProgram {
public:
    PipeToProgram() = default;
    PipeToProgram(const PipeToProgram&) = delete;
    PipeToProgram& operator=(const PipeToProgram&) = delete;
    ~PipeToProgram();

    // Makes the pipe, binary at both ends. False if the system refuses.
    bool Open();

    // What the program is given: the descriptor's number goes into the exchange file.
    int InheritedDescriptor() const { return m_inherited; }
    HANDLE InheritedHandle() const;
    // Once the program has its own copy.
    void DropInherited();

    // Whether so many bytes can be written without waiting for the program to read.
    bool HasRoomFor(std::size_t bytes) const;
    bool IsDrained() const { return Unread() == 0; }
    bool IsOpen() const { return m_write >= 0; }
    // Writes all of the bytes; false if the pipe is closed or broken.
    bool Write(std::string_view bytes);
    void CloseWriteEnd();

private:
    // What the system holds for the program. This end is kept open only to look.
    std::size_t Unread() const;

    int m_read = -1;
    int m_inherited = -1;
    int m_write = -1;
};

}  // namespace plotvane
