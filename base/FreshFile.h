#pragma once

#include <filesystem>
#include <string_view>

#include "base/FileHandle.h"
#include "base/OwnFile.h"

namespace plotvane {

// A new file, written piece by piece beside the one that it will replace. Its name is random, because another
// program may replace the same file at the same time. The destructor removes the file unless it was renamed
// or kept, so the file that the user asked for is either whole or not there.
class FreshFile {
public:
    // If the file cannot be made, every call returns false.
    explicit FreshFile(const std::filesystem::path& folder);
    ~FreshFile();
    FreshFile(const FreshFile&) = delete;
    FreshFile& operator=(const FreshFile&) = delete;

    // False if the disk is full, for example. The file is useless then.
    [[nodiscard]] bool Append(std::string_view bytes);

    // Returns when all bytes and the name are on the disk.
    [[nodiscard]] bool Flush();

    [[nodiscard]] bool Rename(const std::filesystem::path& name, IfTaken ifTaken);

    // Renames the fresh file over a file in its folder, which may be missing, and closes it. Waits a moment
    // for another program that has that file open. On failure the old file stays, and the fresh one is open.
    [[nodiscard]] bool TakePlaceOf(const std::filesystem::path& file);

    // The destructor no longer removes the file.
    void Keep() { m_goesAway = false; }

private:
    std::filesystem::path m_path;
    FileHandle m_file;
    bool m_goesAway = true;
};

// Removes the fresh files that killed programs have left in a folder, but not those that other programs are
// writing.
void RemoveLeftovers(const std::filesystem::path& folder);

}  // namespace plotvane
