#include "framework/DialogTemplate.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <stdexcept>

namespace {

// A template in memory, all numbers little-endian and packed:
//
//   version 1, 0xFFFF             2 words
//   help id, extended style, style 3 double words
//   number of controls            word
//   x, y, width, height           4 words
//   menu, window class, title     a name or a number each
//   with a font: its points, its weight, italic and character set in a byte each, its typeface
//
// and each control, beginning at a multiple of four bytes:
//
//   help id, extended style, style 3 double words
//   x, y, width, height           4 words
//   id                            double word
//   window class, text            a name or a number each
//   length of what follows        word, in bytes; its creation data
//
// A name is UTF-16 that ends with 0. A number is the word 0xFFFF with another word behind it.
constexpr std::size_t kCountAt = 16;
constexpr WORD kNumberFollows = 0xFFFF;

// The window classes that have a number, from 0x80 on.
constexpr WORD kFirstClass = 0x80;
constexpr std::array kNumberedClasses = {L"Button",  L"Edit",      L"Static",
                                         L"ListBox", L"ScrollBar", L"ComboBox"};

class Reader {
public:
    explicit Reader(const std::vector<std::byte>& bytes) : m_bytes(bytes) {}

    void Skip(std::size_t count) { Take(count); }
    void AlignToDoubleWord() { m_at = (m_at + 3) & ~std::size_t{3}; }

    WORD Word() { return Number<WORD>(); }
    DWORD DoubleWord() { return Number<DWORD>(); }
    int Coordinate() { return Number<SHORT>(); }

    // A number is kept as it stands: two characters, 0xFFFF and the number.
    std::wstring NameOrNumber() {
        const WORD first = Word();
        if (first == kNumberFollows) return {static_cast<wchar_t>(first), static_cast<wchar_t>(Word())};
        std::wstring name;
        for (WORD unit = first; unit != 0; unit = Word()) name += static_cast<wchar_t>(unit);
        return name;
    }

private:
    template <typename T>
    T Number() {
        T number;
        std::memcpy(&number, Take(sizeof number), sizeof number);
        return number;
    }

    const std::byte* Take(std::size_t count) {
        if (m_at > m_bytes.size() || count > m_bytes.size() - m_at)
            throw std::runtime_error("The template of a dialog is cut off.");
        m_at += count;
        return m_bytes.data() + m_at - count;
    }

    const std::vector<std::byte>& m_bytes;
    std::size_t m_at = 0;
};

std::wstring ReadWindowClass(Reader& reader) {
    std::wstring name = reader.NameOrNumber();
    if (name.empty() || name.front() != kNumberFollows) return name;
    const std::size_t index = std::size_t{name.back()} - kFirstClass;
    if (index >= kNumberedClasses.size()) throw std::runtime_error("A control of no known class.");
    return kNumberedClasses[index];
}

TemplateControl ReadControl(Reader& reader) {
    TemplateControl control;
    reader.AlignToDoubleWord();
    reader.DoubleWord();
    control.exStyle = reader.DoubleWord();
    control.style = reader.DoubleWord();
    control.x = reader.Coordinate();
    control.y = reader.Coordinate();
    control.width = reader.Coordinate();
    control.height = reader.Coordinate();
    control.id = static_cast<int>(reader.DoubleWord());
    control.windowClass = ReadWindowClass(reader);
    control.text = reader.NameOrNumber();
    reader.Skip(reader.Word());
    return control;
}

}  // namespace

DialogTemplate::DialogTemplate(UINT id) {
    const HRSRC resource =
        ::FindResourceW(nullptr, MAKEINTRESOURCEW(id), reinterpret_cast<const wchar_t*>(RT_DIALOG));
    if (!resource) return;
    const auto* bytes = static_cast<const std::byte*>(::LockResource(::LoadResource(nullptr, resource)));
    if (bytes) m_bytes.assign(bytes, bytes + ::SizeofResource(nullptr, resource));
}

void DialogTemplate::KeepFirst(std::size_t count) {
    if (m_bytes.size() < kCountAt + sizeof(WORD)) return;
    WORD kept = 0;
    std::memcpy(&kept, &m_bytes[kCountAt], sizeof kept);
    kept = static_cast<WORD>(std::min<std::size_t>(kept, count));
    std::memcpy(&m_bytes[kCountAt], &kept, sizeof kept);
}

const DLGTEMPLATE* DialogTemplate::Get() const {
    return m_bytes.empty() ? nullptr : reinterpret_cast<const DLGTEMPLATE*>(m_bytes.data());
}

std::vector<TemplateControl> DialogTemplate::Controls() const {
    Reader reader{m_bytes};
    reader.Skip(2 * sizeof(WORD) + 2 * sizeof(DWORD));
    const DWORD style = reader.DoubleWord();
    const WORD count = reader.Word();
    reader.Skip(4 * sizeof(WORD));
    for (int name = 0; name < 3; ++name) reader.NameOrNumber();
    if (style & DS_SETFONT) {
        reader.Skip(2 * sizeof(WORD) + 2);
        reader.NameOrNumber();
    }
    std::vector<TemplateControl> controls;
    for (WORD i = 0; i < count; ++i) controls.push_back(ReadControl(reader));
    return controls;
}
