#pragma once

#include <string_view>

namespace plotvane {

// What the stand-in host tells a person or a script: to a console as its own characters, to a file or pipe in
// UTF-8.
class Console {
public:
    Console();

    // A line of its own.
    void Line(std::wstring_view text);
    // The progress: on a console it takes the place of the progress before; elsewhere it is a line.
    void Progress(std::wstring_view text);

    bool IsConsole() const { return m_isConsole; }

private:
    void Write(std::wstring_view text) const;

    void* m_output;
    bool m_isConsole = false;
    std::size_t m_progressLength = 0;  // of the progress that stands on the last line
};

}  // namespace plotvane
