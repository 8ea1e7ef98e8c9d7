#include "base/TextInput.h"

namespace plotvane {
namespace {

constexpr int kEndOfTextByte = 0x1A;
constexpr int kEndOfFileByte = 0xFF;

}  // namespace

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
    if (m_next == m_filled) FillBuffer();
    return m_next < m_filled ? m_buffer[m_next] : kEnd;
}

// The bytes before an error count; no bytes after it do. Another read might succeed, with bytes that do not
// follow the earlier ones.
void TextInput::FillBuffer() {
    m_next = 0;
    m_filled = 0;
    if (m_file && !IsWanted()) m_file.reset();
    if (!m_file) return;
    const bool failedBefore = std::ferror(m_file.get()) != 0;
    if (!failedBefore) m_filled = std::fread(m_buffer.data(), 1, m_buffer.size(), m_file.get());
    m_failed = m_filled == 0 && std::ferror(m_file.get()) != 0;
}

}  // namespace plotvane
