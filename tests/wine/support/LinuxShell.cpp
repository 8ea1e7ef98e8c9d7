#include "tests/wine/support/LinuxShell.h"

#include <windows.h>

#include "tests/support/system/Await.h"

namespace plotvane::test {
namespace {

constexpr const wchar_t* kDone = L"linux-is-done";
constexpr const wchar_t* kFailed = L"linux-has-failed";

std::wstring Escaped(const std::wstring& text) {
    std::wstring escaped;
    for (const wchar_t c : text) {
        if (c == L'"') escaped += L'\\';
        escaped += c;
    }
    return escaped;
}

}  // namespace

// The shell is no Windows process, so nobody can wait for it. It makes a file when it has finished.
bool RunInShell(const std::filesystem::path& folder, const std::wstring& command) {
    std::wstring line =
        L"sh -c \"" +
        Escaped(L"if { " + command + L"; }; then : >" + kDone + L"; else : >" + kFailed + L"; fi") + L'"';
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    ::CreateProcessW(L"Z:\\bin\\sh", line.data(), nullptr, nullptr, FALSE, 0, nullptr, folder.c_str(),
                     &startup, &started);
    bool isDone = false;
    EXPECT_TRUE(Becomes(
        [&] {
            isDone = std::filesystem::remove(folder / kDone);
            return isDone || std::filesystem::remove(folder / kFailed);
        },
        true))
        << "the shell did not finish";
    return isDone;
}

}  // namespace plotvane::test
