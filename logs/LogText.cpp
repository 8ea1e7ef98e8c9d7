#include "logs/LogText.h"

#include "logs/ModuleKey.h"

namespace plotvane {

bool LogText::Open(const std::filesystem::path& path, ReadWatch* watch) {
    m_input = TextInput(path, watch);
    return m_input.IsOpen();
}

LogText::CellEnd LogText::ReadCell() {
    m_cellLength = 0;
    while (!AtLineEnd()) {
        const int c = Next();
        if (c == ',') return CellEnd::Comma;
        AddToCell(c);
    }
    return m_input.Peek() == TextInput::kEnd ? CellEnd::File : CellEnd::LineEnd;
}

std::string_view LogText::ReadUpTo(char delimiter) {
    m_cellLength = 0;
    for (int c = Next(); c != delimiter && c != TextInput::kEnd; c = Next()) AddToCell(c == '\n' ? ' ' : c);
    return Cell();
}

bool LogText::SkipPast(char wanted, int count) {
    while (count > 0) {
        const int c = Next();
        if (c == TextInput::kEnd) return false;
        if (c == wanted) --count;
    }
    return true;
}

bool LogText::SkipPastInLine(char wanted) {
    while (!AtLineEnd())
        if (Next() == wanted) return true;
    return false;
}

bool LogText::Take(char wanted) {
    if (m_input.Peek() != wanted) return false;
    Next();
    return true;
}

std::optional<char> LogText::TakeLetterOrDigit() {
    const int c = m_input.Peek();
    if (c == TextInput::kEnd || !IsLetterOrDigit(static_cast<char>(c))) return std::nullopt;
    return static_cast<char>(Next());
}

std::optional<int> LogText::TakeDigits(int count) {
    int number = 0;
    for (; count > 0; --count) {
        if (!AtDigit()) return std::nullopt;
        number = number * 10 + Next() - '0';
    }
    return number;
}

std::string_view LogText::TakeCharacters(std::size_t count) {
    m_cellLength = 0;
    for (; count > 0 && !AtLineEnd(); --count) AddToCell(Next());
    return Cell();
}

bool LogText::AtDigit() {
    const int c = m_input.Peek();
    return c >= '0' && c <= '9';
}

bool LogText::AtLineEnd() {
    const int c = m_input.Peek();
    return c == '\n' || c == TextInput::kEnd;
}

void LogText::AddToCell(int character) {
    if (m_cellLength == kMaxCellLength) return;
    m_cell[m_cellLength++] = character == 0 ? '?' : static_cast<char>(character);
}

}  // namespace plotvane
