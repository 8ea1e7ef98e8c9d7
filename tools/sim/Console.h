#pragma once

#include <string_view>

namespace plotvane {

// Prints what the stand-in host says: to a console as its own characters, to a file or pipe as UTF-8.
class Console {
public:
    Console();

    // Prints one line.
    void Line(std::wstring_view text);
    // On a console, replaces the progress printed before; elsewhere prints a line.
    void Progress(std::wstring_view text);

    bool IsConsole() const { return m_isConsole; }

private:
    void Write(std::wstring_view text) const;

    void* m_output;
    bool m_isConsole = false;
    std::size_t m_progressLength = 0;  // of the progress shown in the last line
};

}  // namespace plotvane
