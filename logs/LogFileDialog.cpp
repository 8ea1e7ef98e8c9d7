#include "logs/LogFileDialog.h"

#include <commdlg.h>

#include <algorithm>
#include <array>
#include <string>

#include "framework/Text.h"
#include "res/resource.h"

namespace plotvane {
namespace {

// Windows wants a NUL after each part of a filter, and a second one at its end.
std::wstring Filter() {
    std::wstring filter =
        ToWide(LoadText(IDS_DIAGNEL_LOGS) + " (*.csv)|*.csv|" + LoadText(IDS_ALL_FILES) + " (*.*)|*.*||");
    std::ranges::replace(filter, L'|', L'\0');
    return filter;
}

std::wstring CurrentDirectory() {
    std::wstring directory(::GetCurrentDirectoryW(0, nullptr), L'\0');  // with room for the NUL
    directory.resize(::GetCurrentDirectoryW(static_cast<DWORD>(directory.size()), directory.data()));
    return directory;
}

// The folder, or its nearest ancestor that is not too long for a plain path. With a longer one Windows'
// dialog opens elsewhere, and Wine's ends the program.
std::filesystem::path StartFolder(std::filesystem::path folder) {
    constexpr std::size_t kLongest = 247;
    while (folder.native().size() > kLongest) folder = folder.parent_path();
    return folder;
}

}  // namespace

std::optional<std::filesystem::path> AskForLogFile(HWND owner) {
    const std::wstring current = CurrentDirectory();
    const std::wstring filter = Filter();
    const std::wstring folder = StartFolder(std::filesystem::path(current) / "LOGS").wstring();
    const std::wstring title = ToWide(LoadText(IDS_CHOOSE_LOG));
    std::array<wchar_t, 32768> path{};

    OPENFILENAMEW question{};
    question.lStructSize = sizeof question;
    question.hwndOwner = owner;
    question.lpstrFilter = filter.c_str();
    question.lpstrFile = path.data();
    question.nMaxFile = static_cast<DWORD>(path.size());
    question.lpstrInitialDir = folder.c_str();
    question.lpstrTitle = title.c_str();
    question.Flags = OFN_EXPLORER | OFN_FILEMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
    const bool chosen = ::GetOpenFileNameW(&question) != 0;

    // The flag alone does not keep the dialog from changing the current folder.
    ::SetCurrentDirectoryW(current.c_str());
    if (!chosen) return std::nullopt;
    return std::filesystem::path(path.data());
}

}  // namespace plotvane
