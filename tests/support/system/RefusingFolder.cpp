#include "tests/support/system/RefusingFolder.h"

#include <gtest/gtest.h>

#include "tests/support/system/LinuxShell.h"

namespace plotvane::test {
namespace {

// Folders of Linux itself. Not even root can make anything in them.
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
    Unprotect();  // otherwise nobody could remove it
}

// Windows cannot write-protect folders, and under Wine the attribute has no effect on them.
void RefusingFolder::Protect() const {
    EXPECT_TRUE(RunInShell(m_above.Path(), L"chmod a-w protected"));
}

void RefusingFolder::Unprotect() const {
    EXPECT_TRUE(RunInShell(m_above.Path(), L"chmod u+w protected"));
}

}  // namespace plotvane::test
