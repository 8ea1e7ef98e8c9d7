#pragma once

#include <filesystem>
#include <string_view>

#include "base/FileHandle.h"
#include "base/OwnFile.h"

namespace plotvane {

// A new file, written piece by piece beside the one that it will replace, under a name that nobody can
// foresee: another program that replaces the same file at the same time has one too. It goes with the object
// unless it has got its name by then, so what its user asked for is whole or not there.
class FreshFile {
public:
    // Does not exist if it cannot be made; then every call answers false.
    explicit FreshFile(const std::filesystem::path& folder);
    ~FreshFile();
    FreshFile(const FreshFile&) = delete;
    FreshFile& operator=(const FreshFile&) = delete;

    // False if the disk is full, for example. The file is of no use then.
    [[nodiscard]] bool Append(std::string_view bytes);

    // Returns when the disk has it all, with its name.
    [[nodiscard]] bool Flush();

    [[nodiscard]] bool Rename(const std::filesystem::path& name, IfTaken ifTaken);

    // Takes the place of a file in its folder, which may exist or not, and stays. Waits a moment for another
    // program that has that file open. On failure the old file stands.
    [[nodiscard]] bool TakePlaceOf(const std::filesystem::path& file);

    // From now on the file does not go with the object.
    void Keep() { m_goesAway = false; }

private:
    std::filesystem::path m_path;
    FileHandle m_file;
    bool m_goesAway = true;
};

// Removes the fresh files that killed programs have left in a folder. A file that another program is writing
// stays.
void RemoveLeftovers(const std::filesystem::path& folder);

}  // namespace plotvane
