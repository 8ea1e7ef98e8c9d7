#include "framework/SystemLibrary.h"

#include <array>
#include <string>

namespace {

HMODULE LoadFromSystemFolder(const wchar_t* name) {
    std::array<wchar_t, MAX_PATH> folder{};
    const UINT length = ::GetSystemDirectoryW(folder.data(), static_cast<UINT>(folder.size()));
    if (length == 0 || length >= folder.size()) return nullptr;
    const std::wstring path = std::wstring(folder.data(), length) + L"\\" + name;
    return ::LoadLibraryExW(path.c_str(), nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
}

}  // namespace

SystemLibrary::SystemLibrary(const wchar_t* name) : m_module(LoadFromSystemFolder(name)) {}

SystemLibrary::~SystemLibrary() {
    if (m_module) ::FreeLibrary(m_module);
}

FARPROC SystemLibrary::Find(const char* name) const {
    return m_module ? ::GetProcAddress(m_module, name) : nullptr;
}
