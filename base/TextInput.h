#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <utility>

#include "base/FileHandle.h"
#include "base/ReadWatch.h"

namespace plotvane {

// A text file, the host's or this program's own, read character by character. It may have any length; the
// memory is constant. Line ends arrive as a single '\n' (CR LF is folded; a lone CR stays). The text ends at
// the end of the file and at the bytes 0x1A and 0xFF, which the formats treat as end of file. This class does
// not use the C library's text mode, because that differs between systems. The watch, if any, is called every
// 64 KB; if it answers that the text is no longer wanted, the text ends there and is closed.
class TextInput {
public:
    static constexpr int kEnd = -1;

    TextInput() = default;  // not open
    // The watch, if any, must outlive this object.
    explicit TextInput(const std::filesystem::path& path, ReadWatch* watch = nullptr)
        : m_file(OpenFile(path, "rb")), m_watch(watch) {}
    explicit TextInput(FileHandle file) : m_file(std::move(file)) {}

    bool IsOpen() const { return m_file != nullptr; }

    // The next character as 0..254, or kEnd. Get moves past it, Peek does not. At the end, after an error,
    // and when not open, both return kEnd every time.
    int Get();
    int Peek();

    // Whether a read failed. The text then stops before its end, and nobody knows what follows, so a reader
    // counts such a file as not read.
    bool HasFailed() const { return m_failed; }

private:
    static constexpr std::size_t kBufferSize = 4096;
    static constexpr int kBuffersPerLook = 16;  // between calls of the watch

    int ReadCharacter();
    int NextByte();
    int PeekByte();
    bool IsWanted();
    void FillBuffer();

    FileHandle m_file;
    ReadWatch* m_watch = nullptr;
    int m_buffersRead = 0;  // since the last call of the watch
    std::array<unsigned char, kBufferSize> m_buffer{};
    std::size_t m_next = 0;
    std::size_t m_filled = 0;
    std::optional<int> m_ahead;  // the character that Peek has read
    bool m_ended = false;
    bool m_failed = false;
};

}  // namespace plotvane
