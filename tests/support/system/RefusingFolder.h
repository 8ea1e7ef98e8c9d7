#pragma once

#include <filesystem>

#include "tests/support/TempFolder.h"

namespace plotvane::test {

// A folder in which this user can make neither file nor folder. It is a folder of the object's own that
// denies it. Under Wine no folder denies anything to root; for root it is a drive that nobody can write to,
// if the machine has one.
class RefusingFolder {
public:
    RefusingFolder();
    ~RefusingFolder();
    RefusingFolder(const RefusingFolder&) = delete;
    RefusingFolder& operator=(const RefusingFolder&) = delete;

    // Empty if there is none.
    const std::filesystem::path& Path() const { return m_path; }

private:
    TempFolder m_above;
    const std::filesystem::path m_own = m_above / "protected";
    std::filesystem::path m_path;
};

}  // namespace plotvane::test
