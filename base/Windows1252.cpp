#include "base/Windows1252.h"

#include <array>
#include <cstddef>

namespace plotvane {
namespace {

// Bytes 0x80..0x9F. Every other byte is the Unicode character with the same number, and so are the five bytes
// that the code page leaves undefined.
constexpr std::array<char16_t, 32> kUpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char16_t UnicodeOf(unsigned char byte) {
    const bool mapped = byte >= 0x80 && byte < 0x80 + kUpperControls.size();
    return mapped ? kUpperControls[byte - std::size_t{0x80}] : char16_t{byte};
}

}  // namespace

void AppendUtf16(std::u16string& text, std::string_view windows1252) {
    for (const char c : windows1252) text += UnicodeOf(static_cast<unsigned char>(c));
}

void AppendUtf8(std::string& text, std::string_view windows1252) {
    constexpr char16_t kOneByte = 0x80;
    constexpr char16_t kTwoBytes = 0x800;
    const auto append = [&](int byte) { text += static_cast<char>(byte); };
    for (const char c : windows1252) {
        const char16_t unit = UnicodeOf(static_cast<unsigned char>(c));
        if (unit < kOneByte) {
            append(unit);
        } else if (unit < kTwoBytes) {
            append(0xC0 | unit >> 6);
            append(0x80 | (unit & 0x3F));
        } else {
            append(0xE0 | unit >> 12);
            append(0x80 | (unit >> 6 & 0x3F));
            append(0x80 | (unit & 0x3F));
        }
    }
}

}  // namespace plotvane
