#include "files/TextInput.h"

#include <cstdlib>
#include <string>

#include "files/FileOperations.h"
#include "files/HeldFile.h"

namespace plotvane {
namespace {

constexpr int kEndOfTextByte = 0x1A;
constexpr int kEndOfFileByte = 0xFF;

#ifdef _WIN32
constexpr unsigned long kSharingViolation = 32;  // the system's own number of an error
#endif

}  // namespace

FileHandle OpenFile(const std::filesystem::path& path, const char* mode) {
    if (IsFolder(path)) return nullptr;
#ifdef _WIN32
    const std::wstring wideMode(mode, mode + std::char_traits<char>::length(mode));
    FileHandle file;
    OutwaitHolder([&] {
        file.reset(_wfopen(path.c_str(), wideMode.c_str()));
        return file || _doserrno != kSharingViolation;
    });
    return file;
#else
    return FileHandle(std::fopen(path.c_str(), mode));
#endif
}

int TextInput::Get() {
    const int character = Peek();
    m_ahead.reset();
    return character;
}

int TextInput::Peek() {
    if (!m_ahead) m_ahead = ReadCharacter();
    return *m_ahead;
}

int TextInput::ReadCharacter() {
    if (m_ended) return kEnd;
    const int byte = NextByte();
    if (byte == kEnd || byte == kEndOfTextByte || byte == kEndOfFileByte) {
        m_ended = true;
        return kEnd;
    }
    if (byte == '\r' && PeekByte() == '\n') return NextByte();
    return byte;
}

int TextInput::NextByte() {
    const int byte = PeekByte();
    if (byte != kEnd) ++m_next;
    return byte;
}

bool TextInput::IsWanted() {
    if (!m_watch || m_buffersRead++ < kBuffersPerLook) return true;
    m_buffersRead = 1;
    return m_watch->GoOn();
}

int TextInput::PeekByte() {
    if (m_next == m_filled) {
        m_next = 0;
        if (m_file && !IsWanted()) m_file.reset();
        m_filled = m_file ? std::fread(m_buffer.data(), 1, m_buffer.size(), m_file.get()) : 0;
        if (m_filled == 0) return kEnd;
    }
    return m_buffer[m_next];
}

}  // namespace plotvane
