#pragma once

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace plotvane::test {

// Whether this program has the file open.
inline bool IsHeldOpen(const std::filesystem::path& file) {
    namespace fs = std::filesystem;
#ifdef _WIN32
    // Windows does not rename a file that somebody has open.
    fs::path other = file;
    other += ".renamed";
    std::error_code held;
    fs::rename(file, other, held);
    if (!held) fs::rename(other, file);
    return static_cast<bool>(held);
#else
    const fs::path sought = fs::canonical(file);
    return std::ranges::any_of(fs::directory_iterator("/proc/self/fd"), [&](const auto& entry) {
        std::error_code closed;  // the descriptor of the folder that is being read
        return fs::read_symlink(entry.path(), closed) == sought;
    });
#endif
}

}  // namespace plotvane::test
