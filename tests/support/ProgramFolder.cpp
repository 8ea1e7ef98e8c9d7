#include "tests/support/ProgramFolder.h"

#ifdef _WIN32
#include <windows.h>

#include <string>
#endif

namespace plotvane::test {

#ifdef _WIN32
std::filesystem::path ProgramFolder() {
    std::wstring path(32768, L'\0');
    path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return std::filesystem::path(path).parent_path();
}
#else
std::filesystem::path ProgramFolder() {
    return std::filesystem::read_symlink("/proc/self/exe").parent_path();
}
#endif

std::filesystem::path DataFolder(std::string_view name, const std::filesystem::path& inTree) {
    const std::filesystem::path beside = ProgramFolder() / name;
    return std::filesystem::is_directory(beside) ? beside : inTree;
}

}  // namespace plotvane::test
