#include "tests/wine/support/ProgramLimit.h"

#include "tests/wine/support/LinuxShell.h"

namespace plotvane::test {

bool LimitProgram(const std::filesystem::path& folder, const std::wstring& limit) {
    constexpr const wchar_t* kFound = L"linux-found-it";
    RunInShell(folder,
               L"here=$(pwd -P); for p in /proc/[0-9]*; do "
               L"if test \"$(cat $p/comm 2>/dev/null)\" = plotvane.exe && "
               L"test \"$(readlink $p/cwd)\" = \"$here\"; then "
               L"prlimit --pid ${p#/proc/} " +
                   limit + L" && : >" + kFound + L"; fi; done; true");
    return std::filesystem::remove(folder / kFound);
}

}  // namespace plotvane::test
