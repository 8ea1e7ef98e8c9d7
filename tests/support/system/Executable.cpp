#include "tests/support/system/Executable.h"

#include <windows.h>

#include <algorithm>
#include <cstring>
#include <stdexcept>

#include "tests/support/TempFolder.h"

namespace plotvane::test {

Executable::Executable(const std::filesystem::path& file) : m_bytes(test::BytesOf(file)) {
    ReadHeaders();
}

template <class Number>
Number Executable::At(std::size_t offset) const {
    Number number;
    if (offset > m_bytes.size() || m_bytes.size() - offset < sizeof number) {
        throw std::runtime_error("an executable file that is cut off");
    }
    std::memcpy(&number, m_bytes.data() + offset, sizeof number);
    return number;
}

void Executable::ReadHeaders() {
    const auto start = At<IMAGE_DOS_HEADER>(0);
    const auto place = static_cast<std::size_t>(start.e_lfanew);
    const auto headers = At<IMAGE_NT_HEADERS64>(place);
    if (start.e_magic != IMAGE_DOS_SIGNATURE || headers.Signature != IMAGE_NT_SIGNATURE ||
        headers.OptionalHeader.Magic != IMAGE_NT_OPTIONAL_HDR64_MAGIC) {
        throw std::runtime_error("no 64-bit executable file");
    }
    m_fileFlags = headers.FileHeader.Characteristics;
    m_dllFlags = headers.OptionalHeader.DllCharacteristics;
    for (const IMAGE_DATA_DIRECTORY& directory : headers.OptionalHeader.DataDirectory) {
        m_directories.push_back({directory.VirtualAddress, directory.Size});
    }
    std::size_t next =
        place + offsetof(IMAGE_NT_HEADERS64, OptionalHeader) + headers.FileHeader.SizeOfOptionalHeader;
    for (int count = 0; count < headers.FileHeader.NumberOfSections; ++count) {
        const auto header = At<IMAGE_SECTION_HEADER>(next);
        const auto* const name = reinterpret_cast<const char*>(header.Name);
        const std::size_t size = std::min(header.SizeOfRawData, header.Misc.VirtualSize);
        m_sections.push_back({std::string(name, strnlen(name, IMAGE_SIZEOF_SHORT_NAME)),
                              header.Characteristics, header.VirtualAddress,
                              std::string_view(m_bytes).substr(header.PointerToRawData, size)});
        next += sizeof header;
    }
}

std::string_view Executable::BytesOf(std::string_view section) const {
    const auto found = std::ranges::find(m_sections, section, &Section::name);
    return found == m_sections.end() ? std::string_view() : found->bytes;
}

std::uint32_t Executable::SizeOfDirectory(int directory) const {
    return m_directories.at(static_cast<std::size_t>(directory)).size;
}

std::size_t Executable::OffsetOf(std::uint32_t address) const {
    for (const Section& section : m_sections) {
        if (address >= section.address && address - section.address < section.bytes.size()) {
            return static_cast<std::size_t>(section.bytes.data() - m_bytes.data()) + address -
                   section.address;
        }
    }
    throw std::runtime_error("an address outside of an executable file");
}

std::set<std::string> Executable::Imports() const {
    std::set<std::string> names;
    const Directory& imports = m_directories.at(IMAGE_DIRECTORY_ENTRY_IMPORT);
    if (imports.size == 0) return names;
    for (std::size_t offset = OffsetOf(imports.address);; offset += sizeof(IMAGE_IMPORT_DESCRIPTOR)) {
        const auto library = At<IMAGE_IMPORT_DESCRIPTOR>(offset);
        if (library.Name == 0) return names;
        names.insert(LowerCase(m_bytes.c_str() + OffsetOf(library.Name)));
    }
}

std::string LowerCase(std::string name) {
    std::ranges::transform(name, name.begin(),
                           [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c; });
    return name;
}

}  // namespace plotvane::test
