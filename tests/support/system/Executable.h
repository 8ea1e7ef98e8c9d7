#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace plotvane::test {

// The headers of a 64-bit Windows program or library, read from its file.
class Executable {
public:
    struct Section {
        std::string name;
        std::uint32_t flags;  // IMAGE_SCN_...
        std::uint32_t address;
        std::string_view bytes;  // those in the file; lives as long as the object
    };

    // Throws std::runtime_error if the file is not a program or library.
    explicit Executable(const std::filesystem::path& file);
    Executable(const Executable&) = delete;
    Executable& operator=(const Executable&) = delete;

    std::uint16_t FileFlags() const { return m_fileFlags; }  // IMAGE_FILE_...
    std::uint16_t DllFlags() const { return m_dllFlags; }    // IMAGE_DLLCHARACTERISTICS_...
    const std::vector<Section>& Sections() const { return m_sections; }
    // The bytes of a section by its name; empty if there is none.
    std::string_view BytesOf(std::string_view section) const;
    std::uint32_t SizeOfDirectory(int directory) const;  // IMAGE_DIRECTORY_ENTRY_...
    // The libraries that Windows loads together with the file, in lower case.
    std::set<std::string> Imports() const;
    bool Contains(std::string_view bytes) const { return m_bytes.find(bytes) != std::string::npos; }

private:
    struct Directory {
        std::uint32_t address;
        std::uint32_t size;
    };

    template <class Number>
    Number At(std::size_t offset) const;
    void ReadHeaders();
    std::size_t OffsetOf(std::uint32_t address) const;

    std::string m_bytes;
    std::uint16_t m_fileFlags = 0;
    std::uint16_t m_dllFlags = 0;
    std::vector<Section> m_sections;
    std::vector<Directory> m_directories;
};

// In lower case, because Windows ignores the case of library names.
std::string LowerCase(std::string name);

}  // namespace plotvane::test
