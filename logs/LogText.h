#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string_view>

#include "base/TextInput.h"

namespace plotvane {

// Steps through the text of a log, cell by cell. Needs the same memory for any file, because it keeps only
// the beginning of a cell. At the end of the file every step does nothing.
class LogText {
public:
    static constexpr std::size_t kMaxCellLength = 256;

    enum class CellEnd { Comma, LineEnd, File };

    // The watch, if any, is called during long texts; see TextInput.
    bool Open(const std::filesystem::path& path, ReadWatch* watch = nullptr);
    void Close() { m_input = TextInput(); }

    // Whether a read error ended the text early.
    bool HasFailed() const { return m_input.HasFailed(); }

    // Reads up to the comma and takes it, or up to the line end and leaves it.
    CellEnd ReadCell();

    // Reads up to the delimiter, on whatever line, and takes it. The text becomes the cell. A line end in it
    // becomes a blank, because a record, and the boxes that show its parts, have one line.
    std::string_view ReadUpTo(char delimiter);

    // What was read last, cut to kMaxCellLength; valid until the next call. A NUL, which would end a record
    // early, becomes "?". Like any other odd character it makes a value no number.
    std::string_view Cell() const { return {m_cell.data(), m_cellLength}; }

    // Moves past the count-th such character, on whatever line. False, at the end of the file, if there are
    // fewer.
    bool SkipPast(char wanted, int count = 1);

    // The same within the line. If there is none, stops before the line end and returns false.
    bool SkipPastInLine(char wanted);

    bool SkipLines(int count) { return SkipPast('\n', count); }

    // Moves past the next character, whatever it is.
    void SkipCharacter() { Next(); }

    // Takes the next character if it is this one.
    bool Take(char wanted);

    // Takes the next character if it is a letter or digit.
    std::optional<char> TakeLetterOrDigit();

    // Takes this many digits as a number. Nothing if there are fewer; those are taken all the same.
    std::optional<int> TakeDigits(int count);

    // Takes this many characters of the line as the cell, fewer at the line's end.
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
