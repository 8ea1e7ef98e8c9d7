#include "framework/FileDialog.h"

#include <commdlg.h>

#include <algorithm>
#include <array>

#include "framework/CommonDialogs.h"
#include "framework/Text.h"

namespace {

using Dialog = BOOL WINAPI(OPENFILENAMEW*);

// Windows wants a NUL after each part of a filter, and a second one at its end.
std::wstring FilterFor(const std::vector<FileType>& types) {
    std::string filter;
    for (const FileType& type : types) filter += type.name + " (" + type.pattern + ")|" + type.pattern + "|";
    std::wstring wide = ToWide(filter + "|");
    std::ranges::replace(wide, L'|', L'\0');
    return wide;
}

// The folder, or its nearest ancestor that is not too long for a plain path. With a longer one Windows'
// dialog opens elsewhere, and Wine's ends the program.
std::filesystem::path StartFolder(std::filesystem::path folder) {
    constexpr std::size_t kLongest = 247;
    while (folder.native().size() > kLongest) folder = folder.parent_path();
    return folder;
}

std::optional<std::filesystem::path> Ask(HWND owner, const FileQuestion& question, const char* function,
                                         DWORD flags) {
    auto* const dialog = CommonDialogs().Function<Dialog>(function);
    if (!dialog) return std::nullopt;
    const std::filesystem::path current = CurrentFolder();
    const std::wstring filter = FilterFor(question.types);
    const std::wstring folder = StartFolder(question.folder).wstring();
    const std::wstring title = ToWide(question.title);
    const std::wstring extension = ToWide(question.extension);
    std::array<wchar_t, 32768> path{};
    std::ranges::copy(ToWide(question.name).substr(0, path.size() - 1), path.begin());

    OPENFILENAMEW asked{};
    asked.lStructSize = sizeof asked;
    asked.hwndOwner = owner;
    asked.lpstrFilter = filter.c_str();
    asked.lpstrFile = path.data();
    asked.nMaxFile = static_cast<DWORD>(path.size());
    asked.lpstrInitialDir = folder.empty() ? nullptr : folder.c_str();
    asked.lpstrTitle = title.c_str();
    asked.lpstrDefExt = extension.empty() ? nullptr : extension.c_str();
    asked.Flags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | flags;
    const bool isChosen = dialog(&asked) != 0;

    // The flag alone does not keep the dialog from changing the current folder.
    ::SetCurrentDirectoryW(current.c_str());
    if (!isChosen) return std::nullopt;
    return std::filesystem::path(path.data());
}

}  // namespace

std::filesystem::path CurrentFolder() {
    std::wstring folder(::GetCurrentDirectoryW(0, nullptr), L'\0');  // with room for the NUL
    folder.resize(::GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data()));
    return folder;
}

std::optional<std::filesystem::path> AskWhichFile(HWND owner, const FileQuestion& question) {
    return Ask(owner, question, "GetOpenFileNameW", OFN_FILEMUSTEXIST);
}

std::optional<std::filesystem::path> AskWhereToSave(HWND owner, const FileQuestion& question) {
    return Ask(owner, question, "GetSaveFileNameW", OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST);
}
