#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

namespace plotvane {

// One exchange record in the host's text form, from a pipe block or from a log row. Both fill this buffer, so
// that one parser serves live data and replay. The text ends at the first NUL or at the end of the buffer;
// nothing ever overwrites the NUL after the last byte.
class RecordBuffer {
public:
    static constexpr std::size_t kBlockSize = 513;      // the lead byte and the 512 bytes after it
    static constexpr std::size_t kMaxTextLength = 512;  // what a writer of text may fill

    void Clear();

    // The whole block, for the pipe reader.
    std::span<char, kBlockSize> Block() { return std::span<char, kBlockSize>(m_bytes.data(), kBlockSize); }

    // The record's text, up to the first NUL.
    std::string_view Text() const;

    // Appends to the text already there. False, with nothing added, if it does not fit.
    [[nodiscard]] bool Append(std::string_view text);

private:
    std::array<char, kBlockSize + 1> m_bytes{};
};

}  // namespace plotvane
