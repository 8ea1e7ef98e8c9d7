#pragma once

#include <filesystem>

#include "tests/support/TempFolder.h"

namespace plotvane::test {

// A folder in which this user can make neither file nor folder. It is a write-protected folder of the
// object's own. Protection does not stop root, so for root it is a folder of the system. The constructor
// tries each of these; some machines have none.
class RefusingFolder {
public:
    RefusingFolder();
    ~RefusingFolder();
    RefusingFolder(const RefusingFolder&) = delete;
    RefusingFolder& operator=(const RefusingFolder&) = delete;

    // Empty if there is none.
    const std::filesystem::path& Path() const { return m_path; }

private:
    void Protect() const;
    void Unprotect() const;

    TempFolder m_above;
    const std::filesystem::path m_own = m_above / "protected";
    std::filesystem::path m_path;
};

}  // namespace plotvane::test
