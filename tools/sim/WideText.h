#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace plotvane {

inline std::wstring WideFromCodePage(UINT codePage, std::string_view bytes) {
    const int length = static_cast<int>(bytes.size());
    const int size = MultiByteToWideChar(codePage, 0, bytes.data(), length, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(codePage, 0, bytes.data(), length, wide.data(), size);
    return wide;
}

// Text of records and drives is Windows-1252, whatever the system's own code page is.
inline std::wstring WideFromWindows1252(std::string_view bytes) {
    return WideFromCodePage(1252, bytes);
}

}  // namespace plotvane
