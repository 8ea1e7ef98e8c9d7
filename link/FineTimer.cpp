#include "link/FineTimer.h"

#include <array>
#include <string>

namespace plotvane {
namespace {

constexpr UINT kPeriodMs = 1;

// Windows looks for this library beside the program before it looks in its own folder, because it is not on
// its list of known ones. So it is not linked but named in full, and what it needs itself comes from there
// too.
HMODULE LoadMultimedia() {
    std::array<wchar_t, MAX_PATH> folder{};
    const UINT length = ::GetSystemDirectoryW(folder.data(), static_cast<UINT>(folder.size()));
    if (length == 0 || length >= folder.size()) return nullptr;
    const std::wstring path = std::wstring(folder.data(), length) + L"\\winmm.dll";
    return ::LoadLibraryExW(path.c_str(), nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
}

}  // namespace

FineTimer::FineTimer() : m_library(LoadMultimedia()) {
    if (auto* const begin = Function("timeBeginPeriod")) begin(kPeriodMs);
}

FineTimer::~FineTimer() {
    if (auto* const end = Function("timeEndPeriod")) end(kPeriodMs);
    if (m_library) ::FreeLibrary(m_library);
}

FineTimer::SetPeriod* FineTimer::Function(const char* name) const {
    if (!m_library) return nullptr;
    return reinterpret_cast<SetPeriod*>(reinterpret_cast<void*>(::GetProcAddress(m_library, name)));
}

}  // namespace plotvane
