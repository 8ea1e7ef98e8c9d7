#pragma once

#include <filesystem>
#include <string_view>

#include "tests/support/TempFolder.h"

namespace plotvane::test {

// The folder in which targets write their input as files. There is one for the whole process, because
// creating one for each input would take longer than the readers do. Every target leaves it empty.
inline const std::filesystem::path& ScratchPath() {
    static const TempFolder folder;
    return folder.Path();
}

// A file in that folder with the given bytes; its destructor deletes it.
class ScratchFile {
public:
    ScratchFile(const std::filesystem::path& name, std::string_view bytes) : m_path(ScratchPath() / name) {
        Write(bytes);
    }
    ~ScratchFile() {
        std::error_code ignored;
        std::filesystem::remove(m_path, ignored);
    }
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;

    // Replaces the bytes of the file.
    void Write(std::string_view bytes) const { WriteBytes(m_path, bytes); }

    std::string Bytes() const { return BytesOf(m_path); }

    const std::filesystem::path& Path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

}  // namespace plotvane::test
