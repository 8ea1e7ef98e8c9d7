#pragma once

#include <windows.h>

#include <array>
#include <string>
#include <string_view>

// Inside the program text is bytes in Windows-1252, as the host and the files have it; Windows gets UTF-16.
// The code page is always 1252, never the system's own, so that a degree sign is one everywhere.

// Every byte has a character of its own, so this cannot fail.
std::wstring ToWide(std::string_view bytes);

// A UTF-16 unit that has no byte becomes '?' (a surrogate pair becomes two).
std::string ToBytes(std::wstring_view wide);

// UTF-16 for the length of one call, for texts that are drawn or set with every sample: up to 255
// characters need no memory from the heap.
class WideText {
public:
    explicit WideText(std::string_view bytes);
    WideText(const WideText&) = delete;
    WideText& operator=(const WideText&) = delete;

    const wchar_t* c_str() const { return m_long.empty() ? m_short.data() : m_long.c_str(); }
    int Length() const { return m_length; }

private:
    std::array<wchar_t, 256> m_short;
    std::wstring m_long;
    int m_length = 0;
};

// The text of that number in the program's string table; empty if it has none.
std::string LoadText(UINT id);

// A box with these two texts of the string table and an OK button; returns when the user has closed it.
// The owner, if any, is disabled meanwhile.
void MessageBoxText(HWND owner, UINT textId, UINT captionId);
