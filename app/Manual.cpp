#include "app/Manual.h"

#include <windows.h>

#include <shellapi.h>
#include <shlwapi.h>

#include <array>
#include <filesystem>
#include <string>

#include "app/ManualAddress.h"
#include "base/FileOperations.h"
#include "framework/SystemLibrary.h"

namespace plotvane {
namespace {

constexpr DWORD kLongestPath = 32768;

std::filesystem::path ManualPath() {
    std::wstring program(kLongestPath, L'\0');
    program.resize(::GetModuleFileNameW(nullptr, program.data(), kLongestPath));
    return std::filesystem::path(program).parent_path() / "manual.html";
}

// As Windows notes it for pages of the web; empty if it notes nothing.
std::wstring RegisteredBrowser() {
    const SystemLibrary shell(L"shlwapi.dll");
    auto* const query = shell.Function<decltype(::AssocQueryStringW)>("AssocQueryStringW");
    std::array<wchar_t, 2048> command{};
    auto size = static_cast<DWORD>(command.size());
    const bool isKnown =
        query && SUCCEEDED(query(ASSOCF_NONE, ASSOCSTR_COMMAND, L".html", L"open", command.data(), &size));
    return isKnown ? command.data() : L"";
}

bool Start(std::wstring command) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!::CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                          &process))
        return false;
    ::CloseHandle(process.hThread);
    ::CloseHandle(process.hProcess);
    return true;
}

bool OpenAtItsBeginning(const std::filesystem::path& manual) {
    const SystemLibrary shell(L"shell32.dll");
    auto* const execute = shell.Function<decltype(::ShellExecuteExW)>("ShellExecuteExW");
    SHELLEXECUTEINFOW request{};
    request.cbSize = sizeof request;
    request.fMask = SEE_MASK_FLAG_NO_UI | SEE_MASK_NOASYNC;
    request.lpFile = manual.c_str();
    request.nShow = SW_SHOWNORMAL;
    return execute && execute(&request);
}

}  // namespace

// The shell cannot do it alone: it drops the part of an address that names the page.
bool ShowManual(std::string_view page) {
    const std::filesystem::path manual = ManualPath();
    if (KindOf(manual) == FileKind::Missing) return false;
    const std::u8string path = manual.u8string();
    const std::string address = AddressOf({reinterpret_cast<const char*>(path.data()), path.size()}, page);
    const auto command = CommandFor(RegisteredBrowser(), std::wstring(address.begin(), address.end()));
    return (command && Start(*command)) || OpenAtItsBeginning(manual);
}

}  // namespace plotvane
