#include "framework/Text.h"

namespace {

constexpr UINT kCodePage = 1252;

// In this code page each byte is one UTF-16 unit, so lengths never change.
void Convert(std::string_view bytes, wchar_t* wide) {
    const int length = static_cast<int>(bytes.size());
    if (length > 0) ::MultiByteToWideChar(kCodePage, 0, bytes.data(), length, wide, length);
}

std::wstring_view LoadWide(UINT id) {
    // With a buffer size of 0 the call gives the address of the text inside the resource instead of a copy.
    const wchar_t* text = nullptr;
    const int length = ::LoadStringW(::GetModuleHandleW(nullptr), id, reinterpret_cast<wchar_t*>(&text), 0);
    return length > 0 ? std::wstring_view{text, static_cast<std::size_t>(length)} : std::wstring_view{};
}

}  // namespace

std::wstring ToWide(std::string_view bytes) {
    std::wstring wide(bytes.size(), L'\0');
    Convert(bytes, wide.data());
    return wide;
}

std::string ToBytes(std::wstring_view wide) {
    std::string bytes(wide.size(), '\0');
    const int length = static_cast<int>(wide.size());
    if (length > 0) {
        ::WideCharToMultiByte(kCodePage, WC_NO_BEST_FIT_CHARS, wide.data(), length, bytes.data(), length, "?",
                              nullptr);
    }
    return bytes;
}

WideText::WideText(std::string_view bytes) : m_length(static_cast<int>(bytes.size())) {
    if (bytes.size() < m_short.size()) {
        Convert(bytes, m_short.data());
        m_short[bytes.size()] = L'\0';
    } else {
        m_long = ToWide(bytes);
    }
}

std::string LoadText(UINT id) {
    return ToBytes(LoadWide(id));
}

void MessageBoxText(HWND owner, UINT textId, UINT captionId) {
    const std::wstring text{LoadWide(textId)};
    const std::wstring caption{LoadWide(captionId)};
    ::MessageBoxW(owner, text.c_str(), caption.c_str(), MB_OK);
}
