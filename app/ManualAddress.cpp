#include "app/ManualAddress.h"

namespace plotvane {
namespace {

constexpr std::string_view kKeptMarks = "-_.~/:!$&'()*+,;=@";

bool IsLetterOrDigit(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

void AppendEncoded(std::string& address, char c) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    const auto byte = static_cast<unsigned char>(c);
    if (IsLetterOrDigit(c) || kKeptMarks.find(c) != std::string_view::npos) {
        address += c;
    } else {
        address += '%';
        address += kDigits[byte >> 4U];
        address += kDigits[byte & 15U];
    }
}

bool IsFullPath(std::wstring_view path) {
    return path.size() > 2 && path[1] == L':' && path[2] == L'\\';
}

}  // namespace

std::string AddressOf(std::string_view path, std::string_view page) {
    // Names of any length begin with these, and browsers do not know them.
    constexpr std::string_view kLong = R"(\\?\)";
    constexpr std::string_view kLongOnShare = R"(\\?\UNC\)";
    const bool isShare =
        path.starts_with(kLongOnShare) || (path.starts_with(R"(\\)") && !path.starts_with(kLong));
    if (path.starts_with(kLongOnShare)) {
        path.remove_prefix(kLongOnShare.size());
    } else if (path.starts_with(kLong)) {
        path.remove_prefix(kLong.size());
    } else if (isShare) {
        path.remove_prefix(2);
    }
    // A share has its machine where a drive has nothing.
    std::string address = isShare ? "file://" : "file:///";
    for (const char c : path) AppendEncoded(address, c == '\\' ? '/' : c);
    return address.append("#").append(page);
}

std::optional<std::wstring> CommandFor(std::wstring_view registered, std::wstring_view address) {
    const bool isQuoted = registered.starts_with(L'"');
    if (!IsFullPath(registered.substr(isQuoted ? 1 : 0))) return std::nullopt;
    for (const std::wstring_view place : {L"%1", L"%L", L"%l"}) {
        const std::size_t at = registered.find(place);
        if (at == std::wstring_view::npos) continue;
        std::wstring command(registered.substr(0, at));
        return command.append(address).append(registered.substr(at + place.size()));
    }
    return std::nullopt;
}

}  // namespace plotvane
