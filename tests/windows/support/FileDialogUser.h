#pragma once

#include <windows.h>

#include <dlgs.h>

#include <filesystem>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "framework/Text.h"
#include "tests/support/TempFolder.h"
#include "tests/windows/support/DialogUser.h"

namespace plotvane::test {

// An empty folder that is the current one while this object lives.
class CurrentTempFolder : public TempFolder {
public:
    CurrentTempFolder() { std::filesystem::current_path(Path()); }
    ~CurrentTempFolder() { std::filesystem::current_path(m_before); }
    CurrentTempFolder(const CurrentTempFolder&) = delete;
    CurrentTempFolder& operator=(const CurrentTempFolder&) = delete;

private:
    const std::filesystem::path m_before = std::filesystem::current_path();
};

// Calls `ask`, which shows the system's dialog for files with this caption. Meanwhile a user follows the
// script.
template <typename Ask>
auto WithFileDialog(const wchar_t* caption, Ask ask, const std::function<void(DialogUser&)>& script) {
    DialogUser user{caption};
    std::thread person{[&] { user.Follow(script); }};
    auto answer = ask();
    person.join();
    return answer;
}

// The control for the file's name; which one it is depends on the system.
inline int NameControlOf(const DialogUser& user) {
    return user.Control(cmb13) ? cmb13 : edt1;
}

// Types a name, or a path, and confirms. Does not wait for what the dialog does with it.
inline void ChooseFile(const DialogUser& user, std::string_view name) {
    user.SetText(NameControlOf(user), name);
    ::PostMessageW(user.Dialog(), WM_COMMAND, IDOK, 0);
}

// The lines of the list of file types.
inline std::vector<std::string> TypesIn(const DialogUser& user) {
    std::vector<std::string> types;
    for (LRESULT line = 0; line < user.Ask(cmb1, CB_GETCOUNT); ++line) {
        const auto index = static_cast<WPARAM>(line);
        std::wstring text(static_cast<std::size_t>(user.Ask(cmb1, CB_GETLBTEXTLEN, index)) + 1, L'\0');
        user.Ask(cmb1, CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(text.data()));
        types.push_back(ToBytes(text.c_str()));
    }
    return types;
}

}  // namespace plotvane::test
