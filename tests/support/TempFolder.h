#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

namespace plotvane::test {

// An empty folder for one test; the destructor deletes it with all that is in it.
class TempFolder {
public:
    TempFolder() {
        std::random_device random;
        do {
            m_path = std::filesystem::temp_directory_path() / ("plotvane-test-" + std::to_string(random()));
        } while (!std::filesystem::create_directories(m_path));
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& Path() const { return m_path; }
    std::filesystem::path operator/(std::string_view name) const { return m_path / name; }

private:
    std::filesystem::path m_path;
};

// The bytes as they are on the disk; empty if the file cannot be opened.
inline std::string BytesOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// True if the file can be opened and is not empty. A program that replaces a file gives it the name a moment
// before it lets others open it.
inline bool CanBeRead(const std::filesystem::path& path) {
    return !BytesOf(path).empty();
}

inline void WriteBytes(const std::filesystem::path& path, std::string_view bytes) {
    std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

}  // namespace plotvane::test
