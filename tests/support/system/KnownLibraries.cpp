#include "tests/support/system/KnownLibraries.h"

#include <windows.h>

#include <array>
#include <filesystem>
#include <stdexcept>
#include <vector>

#include "tests/support/system/Executable.h"

namespace plotvane::test {

namespace {

// Wine's own libraries load these by their bare names, and the program cannot prevent it: the first two are
// loaded before it runs its first instruction, and the call for the last one ignores the folders that the
// program has set. Windows loads them by their full paths.
const std::array<std::string, 3> kNamedInFull = {"uxtheme.dll", "winex11.drv", "msimg32.dll"};

std::filesystem::path SystemFolder() {
    std::wstring path(MAX_PATH, L'\0');
    path.resize(::GetSystemDirectoryW(path.data(), static_cast<UINT>(path.size())));
    return path;
}

// Empty if the file is missing or is not a library, such as the names of interfaces that Windows resolves
// itself.
std::set<std::string> ImportsOf(const std::string& library) {
    try {
        return Executable(SystemFolder() / library).Imports();
    } catch (const std::runtime_error&) {
        return {};
    }
}

}  // namespace

const std::set<std::string>& KnownLibraries() {
    static const std::set<std::string> known = {
        "advapi32.dll", "clbcatq.dll",  "combase.dll",  "comdlg32.dll", "coml2.dll",    "difxapi.dll",
        "gdi32.dll",    "gdiplus.dll",  "imagehlp.dll", "imm32.dll",    "kernel32.dll", "msctf.dll",
        "msvcrt.dll",   "normaliz.dll", "nsi.dll",      "ole32.dll",    "oleaut32.dll", "psapi.dll",
        "rpcrt4.dll",   "sechost.dll",  "setupapi.dll", "shcore.dll",   "shell32.dll",  "shlwapi.dll",
        "user32.dll",   "wldap32.dll",  "ws2_32.dll",
    };
    return known;
}

std::set<std::string> GuardedLibraries() {
    std::set<std::string> guarded = KnownLibraries();
    guarded.insert(kNamedInFull.begin(), kNamedInFull.end());
    std::vector<std::string> open(guarded.begin(), guarded.end());
    while (!open.empty()) {
        const std::string library = open.back();
        open.pop_back();
        for (const std::string& name : ImportsOf(library)) {
            if (guarded.insert(name).second) open.push_back(name);
        }
    }
    return guarded;
}

std::set<std::string> SystemLibraries() {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(SystemFolder())) {
        const std::string extension = LowerCase(entry.path().extension().string());
        if (extension == ".dll" || extension == ".drv") {
            names.insert(LowerCase(entry.path().filename().string()));
        }
    }
    return names;
}

}  // namespace plotvane::test
