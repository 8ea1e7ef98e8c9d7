#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string_view>

#include "base/TextInput.h"

namespace plotvane {

// Steps through the text of a log, cell by cell. Needs the same memory for any file: of a cell only the
// beginning is kept. At the end of the file every step stands still.
class LogText {
public:
    static constexpr std::size_t kMaxCellLength = 256;

    enum class CellEnd { Comma, LineEnd, File };

    // The watch, if any, is asked in the midst of long texts; see TextInput.
    bool Open(const std::filesystem::path& path, ReadWatch* watch = nullptr);
    void Close() { m_input = TextInput(); }

    // Whether the disk refused to give up more; the text seems to end there.
    bool HasFailed() const { return m_input.HasFailed(); }

    // Reads the text up to the comma, which is taken too, or up to the line end, which is not.
    CellEnd ReadCell();

    // Reads the text up to the delimiter, wherever it is, and takes that too. The text is the cell then; a
    // line end is a blank in it, because a record, and the boxes that show its parts, have one line.
    std::string_view ReadUpTo(char delimiter);

    // What was read last, cut to kMaxCellLength; until the next call. A NUL, which would end a record in its
    // middle, is a "?" in it: like any other odd character it makes a value no number.
    std::string_view Cell() const { return {m_cell.data(), m_cellLength}; }

    // Moves behind the count-th such character, wherever it is. False, at the end of the file, if there are
    // fewer.
    bool SkipPast(char wanted, int count = 1);

    // The same within the line; if there is none, stops before the line end.
    bool SkipPastInLine(char wanted);

    bool SkipLines(int count) { return SkipPast('\n', count); }

    // Moves behind the next character, whatever it is.
    void SkipCharacter() { Next(); }

    // Takes the next character if it is this one.
    bool Take(char wanted);

    // Takes the next character if it is a letter or digit.
    std::optional<char> TakeLetterOrDigit();

    // Takes so many digits as a number. Nothing if there are fewer; those are taken nonetheless.
    std::optional<int> TakeDigits(int count);

    // Takes so many characters of the line, fewer at its end; they are the cell then.
    std::string_view TakeCharacters(std::size_t count);

    // Whether the next character is a digit.
    bool AtDigit();

private:
    // Every character is read here.
    int Next() { return m_input.Get(); }

    bool AtLineEnd();
    void AddToCell(int character);

    TextInput m_input;
    std::array<char, kMaxCellLength> m_cell{};
    std::size_t m_cellLength = 0;
};

}  // namespace plotvane
