#include "tools/sim/Console.h"

#include <windows.h>

#include <string>

namespace plotvane {

Console::Console() : m_output(GetStdHandle(STD_OUTPUT_HANDLE)) {
    DWORD mode = 0;
    m_isConsole = GetConsoleMode(m_output, &mode) != 0;
}

void Console::Line(std::wstring_view text) {
    std::wstring line;
    if (m_progressLength > 0) line += L"\r\n";
    m_progressLength = 0;
    line += text;
    line += L"\r\n";
    Write(line);
}

void Console::Progress(std::wstring_view text) {
    if (!m_isConsole) {
        Line(text);
        return;
    }
    std::wstring line = L"\r";
    line += text;
    if (text.size() < m_progressLength) line.append(m_progressLength - text.size(), L' ');
    m_progressLength = text.size();
    Write(line);
}

void Console::Write(std::wstring_view text) const {
    DWORD written = 0;
    if (m_isConsole) {
        WriteConsoleW(m_output, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
        return;
    }
    const int length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(), size, nullptr, nullptr);
    WriteFile(m_output, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

}  // namespace plotvane
