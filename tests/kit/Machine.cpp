#include "tests/kit/Machine.h"

#include <windows.h>

#include <shellscalingapi.h>
#include <winternl.h>

#include <array>
#include <cstdio>
#include <string>

#include "tests/support/system/LookAlike.h"

namespace plotvane::kit {
namespace {

constexpr UINT kUsualDotsPerInch = 96;
constexpr const wchar_t* kVersionKey = L"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion";

std::string Utf8(const wchar_t* wide) {
    std::array<char, 512> text{};
    const int room = static_cast<int>(text.size());
    return ::WideCharToMultiByte(CP_UTF8, 0, wide, -1, text.data(), room, nullptr, nullptr) > 0 ? text.data()
                                                                                                : "";
}

// What Windows keeps of itself under that name; empty if nothing.
std::string VersionText(const wchar_t* name) {
    std::array<wchar_t, 128> text{};
    DWORD size = sizeof text;
    if (::RegGetValueW(HKEY_LOCAL_MACHINE, kVersionKey, name, RRF_RT_REG_SZ, nullptr, text.data(), &size) !=
        ERROR_SUCCESS) {
        return {};
    }
    return Utf8(text.data());
}

std::string Revision() {
    DWORD number = 0;
    DWORD size = sizeof number;
    if (::RegGetValueW(HKEY_LOCAL_MACHINE, kVersionKey, L"UBR", RRF_RT_REG_DWORD, nullptr, &number, &size) !=
        ERROR_SUCCESS) {
        return {};
    }
    return "." + std::to_string(number);
}

// Unlike other calls, this one tells programs without a manifest the truth too.
std::string SystemVersion() {
    using GetVersion = NTSTATUS NTAPI(RTL_OSVERSIONINFOW*);
    RTL_OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = sizeof version;
    auto* const get = reinterpret_cast<GetVersion*>(
        reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), "RtlGetVersion")));
    if (!get || get(&version) < 0) return "unknown";
    return std::to_string(version.dwMajorVersion) + "." + std::to_string(version.dwMinorVersion) +
           ", build " + std::to_string(version.dwBuildNumber) + Revision();
}

BOOL CALLBACK NoteScreen(HMONITOR screen, HDC, RECT* place, LPARAM facts) {
    UINT dots = kUsualDotsPerInch;
    UINT same = dots;
    ::GetDpiForMonitor(screen, MDT_EFFECTIVE_DPI, &dots, &same);
    const long width = place->right - place->left;
    const long height = place->bottom - place->top;
    reinterpret_cast<std::vector<Fact>*>(facts)->push_back(
        {"screen", std::to_string(width) + " x " + std::to_string(height) + ", " +
                       std::to_string(dots * 100 / kUsualDotsPerInch) + " %"});
    return TRUE;
}

std::string LocaleName() {
    std::array<wchar_t, LOCALE_NAME_MAX_LENGTH> name{};
    ::GetUserDefaultLocaleName(name.data(), static_cast<int>(name.size()));
    return Utf8(name.data());
}

std::string Now() {
    SYSTEMTIME time{};
    ::GetSystemTime(&time);
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d UTC", time.wYear, time.wMonth,
                  time.wDay, time.wHour, time.wMinute);
    return text.data();
}

}  // namespace

std::vector<Fact> FactsOfThisMachine() {
    std::vector<Fact> facts;
    facts.push_back({"system", VersionText(L"ProductName") + " " + VersionText(L"DisplayVersion") + " (" +
                                   SystemVersion() + ")"});
    if (const std::string lookAlike = test::LookAlikeVersion(); !lookAlike.empty())
        facts.push_back({"look-alike", "Wine " + lookAlike});
    ::EnumDisplayMonitors(nullptr, nullptr, NoteScreen, reinterpret_cast<LPARAM>(&facts));
    facts.push_back({"ANSI code page", std::to_string(::GetACP())});
    facts.push_back({"language", LocaleName()});
    facts.push_back({"time", Now()});
    return facts;
}

}  // namespace plotvane::kit
