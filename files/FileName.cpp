#include "files/FileName.h"

#include <algorithm>
#include <array>
#include <string>

namespace plotvane {
namespace {

// Bytes 0x80..0x9F of Windows-1252; all others are the Unicode character of the same number, and so are the
// five that the code page leaves undefined.
constexpr std::array<char16_t, 32> kUpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char16_t UnicodeOf(unsigned char byte) {
    const bool mapped = byte >= 0x80 && byte < 0x80 + kUpperControls.size();
    return mapped ? kUpperControls[byte - std::size_t{0x80}] : char16_t{byte};
}

char UpperCase(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

// Windows takes the raised digits of its code page for digits here. Devices count from 1, but some systems
// keep 0 too.
bool IsPortDigit(char c) {
    return (c >= '0' && c <= '9') || c == '\xB9' || c == '\xB2' || c == '\xB3';
}

bool BreaksFileName(char c) {
    constexpr std::string_view kReserved = "\\/:*?\"<>|";
    return static_cast<unsigned char>(c) < 0x20 || kReserved.find(c) != std::string_view::npos;
}

}  // namespace

std::filesystem::path PathFromText(std::string_view windows1252) {
    std::u16string characters(windows1252.size(), u'\0');
    std::ranges::transform(windows1252, characters.begin(),
                           [](char c) { return UnicodeOf(static_cast<unsigned char>(c)); });
    return characters;
}

bool IsDeviceName(std::string_view fileName) {
    std::string_view stem = fileName.substr(0, fileName.find_first_of(".:"));
    stem = stem.substr(0, stem.find_last_not_of(' ') + 1);
    std::string name(stem);
    std::ranges::transform(name, name.begin(), UpperCase);
    if (name.size() == 4 && (name.starts_with("COM") || name.starts_with("LPT"))) return IsPortDigit(name[3]);
    constexpr std::array<std::string_view, 6> kNames = {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"};
    return std::ranges::find(kNames, name) != kNames.end();
}

bool IsSafeFileName(std::string_view fileName) {
    if (fileName.empty() || fileName.back() == '.' || fileName.back() == ' ') return false;
    return std::ranges::none_of(fileName, BreaksFileName) && !IsDeviceName(fileName);
}

}  // namespace plotvane
