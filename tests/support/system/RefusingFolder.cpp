#include "tests/support/system/RefusingFolder.h"

#include <windows.h>

#include "tests/support/system/Await.h"
#include "tests/support/system/LinuxProgram.h"

namespace plotvane::test {
namespace {

// Folders of Linux itself, in which not even root can make anything.
constexpr const wchar_t* kSystemFolders[] = {L"Z:\\sys", L"Z:\\proc"};

bool IsProtected(const std::filesystem::path& folder) {
    return (::GetFileAttributesW(folder.c_str()) & FILE_ATTRIBUTE_READONLY) != 0;
}

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
    StartLinuxProgram(L"chmod", L"a-w protected", m_above.Path());
    EXPECT_TRUE(Becomes([this] { return IsProtected(m_own); }, true));
}

void RefusingFolder::Unprotect() const {
    StartLinuxProgram(L"chmod", L"u+w protected", m_above.Path());
    EXPECT_TRUE(Becomes([this] { return IsProtected(m_own); }, false));
}

}  // namespace plotvane::test
