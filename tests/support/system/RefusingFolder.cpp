#include "tests/support/system/RefusingFolder.h"

#include <gtest/gtest.h>

#include "tests/support/system/LinuxShell.h"

namespace plotvane::test {
namespace {

// Folders of Linux itself, in which not even root can make anything.
constexpr const wchar_t* kSystemFolders[] = {L"Z:\\sys", L"Z:\\proc"};

bool Refuses(const std::filesystem::path& folder) {
    std::error_code ignored;
    if (!std::filesystem::is_directory(folder, ignored)) return false;
    const std::filesystem::path inside = folder / "plotvane-test";
    if (!std::filesystem::create_directory(inside, ignored)) return true;
    std::filesystem::remove(inside, ignored);
    return false;
}

}  // namespace

RefusingFolder::RefusingFolder() {
    std::filesystem::create_directory(m_own);
    Protect();
    if (Refuses(m_own)) m_path = m_own;
    for (const std::filesystem::path folder : kSystemFolders) {
        if (m_path.empty() && Refuses(folder)) m_path = folder;
    }
}

RefusingFolder::~RefusingFolder() {
    Unprotect();  // or it could not be removed
}

// Windows knows no write protection of folders, and Wine's attribute changes nothing about one.
void RefusingFolder::Protect() const {
    EXPECT_TRUE(RunInShell(m_above.Path(), L"chmod a-w protected"));
}

void RefusingFolder::Unprotect() const {
    EXPECT_TRUE(RunInShell(m_above.Path(), L"chmod u+w protected"));
}

}  // namespace plotvane::test
