#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <string_view>

namespace plotvane::test {

// What a message box says.
struct Box {
    std::string caption;
    std::string text;
    bool operator==(const Box&) const = default;
};

// The user of a modal dialog. Works in a thread of its own, by messages, while the thread that made this
// object runs the dialog. Each wait polls; after ten seconds it gives up and fails the test.
class DialogUser {
public:
    // For the next dialog with that caption that the calling thread runs.
    explicit DialogUser(std::wstring caption);
    ~DialogUser();
    DialogUser(const DialogUser&) = delete;
    DialogUser& operator=(const DialogUser&) = delete;

    // Waits for the dialog, does what the script says, and cancels a dialog that is still there afterwards.
    void Follow(const std::function<void(DialogUser&)>& script);

    HWND Dialog() const { return m_dialog; }
    HWND Control(int id) const { return ::GetDlgItem(m_dialog, id); }
    std::string TextOf(int id) const;
    bool IsChecked(int id) const;
    LRESULT Ask(int id, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    HWND Focus() const;
    HWND ShownBox() const;  // null for none
    bool HasFocus(int id) const { return Focus() == Control(id); }
    bool IsOver() const { return !::IsWindow(m_dialog); }

    // Boxes shown since the dialog came up.
    int BoxCount() const;

    // Replaces the text without a focus or a key.
    void SetText(int id, std::string_view text) const;

    void Click(int id) const;                  // with the mouse, so it gets the focus
    void GoTo(int id) const;                   // by Tab; the texts of edits become selected
    void Type(int id, std::string_view text);  // goes there and types over what was selected
    void Press(WORD key) const;                // where the focus is
    void Choose(int list, int line) const;     // of a drop-down list
    void Slide(int trackbar, int position) const;

    bool SeesBox(const Box& expected) const;  // waits for it, and presses its OK button
    bool IsAtRest() const;                    // the dialog has handled everything, and shows no box
    // Waits for it: after a box has closed, the display gives the focus back in its own time.
    bool GetsFocus(int id) const;
    bool Ends() const;  // waits for it

    bool WaitUntil(const char* what, const std::function<bool()>& isSo) const;

private:
    HWND FindDialog() const;

    const DWORD m_uiThread;
    const std::wstring m_caption;
    HWND m_dialog = nullptr;
    HHOOK m_dialogHook = nullptr;
    HHOOK m_messageHook = nullptr;
};

}  // namespace plotvane::test
