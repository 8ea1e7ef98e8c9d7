#include "fuzz/Inputs.h"

namespace plotvane::fuzz {

std::string_view AsText(std::span<const std::uint8_t> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

std::string_view TakePart(std::string_view& rest) {
    const auto end = rest.find(kPartSeparator);
    const auto part = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    return part;
}

std::string TextOfFile(std::string_view bytes) {
    constexpr std::string_view kEnds = "\x1A\xFF";
    bytes = bytes.substr(0, bytes.find_first_of(kEnds));
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (bytes.substr(i, 2) == "\r\n") continue;
        text += bytes[i];
    }
    return text;
}

std::string WithCrLf(std::string_view bytes) {
    std::string text;
    for (const char c : bytes) {
        if (c == '\n') text += '\r';
        text += c;
    }
    return text;
}

}  // namespace plotvane::fuzz
