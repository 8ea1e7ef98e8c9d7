#include "tests/support/system/LookAlike.h"

#include <windows.h>

namespace plotvane::test {

std::string LookAlikeVersion() {
    using GetVersion = const char* CDECL();
    auto* const get = reinterpret_cast<GetVersion*>(
        reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), "wine_get_version")));
    return get ? get() : "";
}

}  // namespace plotvane::test
