#include "tests/support/system/RefusingFolder.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <aclapi.h>

#include <string>

#include "tests/support/system/LookAlike.h"

namespace plotvane::test {
namespace {

// Lets nobody make anything in the folder, and everybody do the rest; or lets everybody do all. The owner may
// change that at any time.
void SetDenied(const std::filesystem::path& folder, bool denied) {
    constexpr DWORD kMake = FILE_ADD_FILE | FILE_ADD_SUBDIRECTORY;
    EXPLICIT_ACCESSW rule{};
    rule.grfAccessPermissions = denied ? FILE_ALL_ACCESS & ~kMake : FILE_ALL_ACCESS;
    rule.grfAccessMode = SET_ACCESS;
    rule.grfInheritance = NO_INHERITANCE;
    SID_IDENTIFIER_AUTHORITY world = SECURITY_WORLD_SID_AUTHORITY;
    PSID all = nullptr;  // by its number: its name is another one in each language
    ::AllocateAndInitializeSid(&world, 1, SECURITY_WORLD_RID, 0, 0, 0, 0, 0, 0, 0, &all);
    ::BuildTrusteeWithSidW(&rule.Trustee, all);
    PACL rules = nullptr;
    EXPECT_EQ(::SetEntriesInAclW(1, &rule, nullptr, &rules), DWORD{ERROR_SUCCESS});
    std::wstring name = folder.wstring();
    EXPECT_EQ(::SetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT,
                                      DACL_SECURITY_INFORMATION | PROTECTED_DACL_SECURITY_INFORMATION,
                                      nullptr, nullptr, rules, nullptr),
              DWORD{ERROR_SUCCESS});
    ::LocalFree(rules);
    ::FreeSid(all);
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
    SetDenied(m_own, true);
    if (Refuses(m_own)) m_path = m_own;
    for (wchar_t drive = L'D'; RunsUnderWine() && m_path.empty() && drive <= L'Z'; ++drive) {
        const std::filesystem::path root = std::wstring(1, drive) + L":\\";
        if (Refuses(root)) m_path = root;
    }
}

RefusingFolder::~RefusingFolder() {
    SetDenied(m_own, false);  // otherwise nobody could remove it
}

}  // namespace plotvane::test
