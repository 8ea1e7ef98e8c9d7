#include "base/FileName.h"

#include <algorithm>
#include <array>
#include <string>

#include "base/Windows1252.h"

namespace plotvane {
namespace {

char UpperCase(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

// Windows accepts the superscript digits of its code page as digits here. Devices count from 1, but some
// systems reserve 0 too.
bool IsPortDigit(char c) {
    return (c >= '0' && c <= '9') || c == '\xB9' || c == '\xB2' || c == '\xB3';
}

bool BreaksFileName(char c) {
    constexpr std::string_view kReserved = "\\/:*?\"<>|";
    return static_cast<unsigned char>(c) < 0x20 || kReserved.find(c) != std::string_view::npos;
}

}  // namespace

std::filesystem::path PathFromText(std::string_view windows1252) {
    std::u16string characters;
    AppendUtf16(characters, windows1252);
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

bool NamesDevice(const std::filesystem::path& path) {
    std::string name;
    for (const char16_t character : path.filename().u16string()) {
        name += character <= 0xFF ? static_cast<char>(character) : '?';  // not in any device's name
    }
    return IsDeviceName(name);
}

bool IsSafeFileName(std::string_view fileName) {
    if (fileName.empty() || fileName.back() == '.' || fileName.back() == ' ') return false;
    return std::ranges::none_of(fileName, BreaksFileName) && !IsDeviceName(fileName);
}

}  // namespace plotvane
