#pragma once

#include <windows.h>

#include <array>
#include <string>
#include <string_view>

// Inside the program, text is Windows-1252 bytes, as in the host's records and files. Windows gets UTF-16.
// The code page is always 1252, never the system's own, so that a degree sign is one on every system.

// Cannot fail: every byte has a character.
std::wstring ToWide(std::string_view bytes);

// A UTF-16 unit that has no byte becomes '?', so a surrogate pair becomes two.
std::string ToBytes(std::wstring_view wide);

// UTF-16 for one call. Meant for texts that each sample draws or sets: up to 255 characters take no memory
// from the heap.
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

// The text with that id in the program's string table; empty if there is none.
std::string LoadText(UINT id);

// Shows a box with these two texts of the string table and an OK button, and returns when the user has closed
// it. The owner, if any, is disabled meanwhile.
void MessageBoxText(HWND owner, UINT textId, UINT captionId);
