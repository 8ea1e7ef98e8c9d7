#pragma once

#include <tuple>

#include "tests/support/system/Keyboard.h"
#include "tests/support/system/ProgramState.h"

namespace plotvane::test {

constexpr int kMessageText = 0xFFFF;

// A program in any state, with the keyboard and with the focus on a button that no key of the table presses
// by accident.
class KeyTest : public AnyState {
protected:
    void EnterWithKeyboard(ProgramState state) {
        Enter(state);
        if (!HasFatalFailure()) TakeKeyboard();
    }

    void TakeKeyboard() {
        ASSERT_TRUE(BringToFront(main));
        main.Focus(IDC_SHIFT_UP);
        ASSERT_TRUE(Becomes([this] { return main.FocusedId(); }, IDC_SHIFT_UP));
    }

    std::wstring Shift() const { return main.Text(IDC_SHIFT_LABEL); }
    std::wstring Speed() const { return main.Text(IDC_REPLAY_SPEED); }

    std::size_t OpenWindows() const { return WindowsOf(main.ProcessId()).size(); }

    // Waits until all keys so far are handled: keys come in their order, and the one that this presses can be
    // seen. The focus must not be in an edit.
    ::testing::AssertionResult HandlesAll() {
        const std::wstring before = Shift();
        const bool isDown = before.ends_with(L":4");
        PressKey(Ctrl(isDown ? VK_LEFT : VK_RIGHT));
        return Becomes([this] { return Shift(); }, isDown ? L"PixelShift:3" : std::wstring(L"PixelShift:4"));
    }

    // The same, and that nothing came of the key.
    ::testing::AssertionResult DoesNothing(Key key) {
        const auto seen = [this] {
            return std::tuple(Buttons(), Speed(), ShownFrames(main), main.Text(IDC_SCALE_MIN),
                              main.Text(IDC_SCALE_MAX), OpenWindows());
        };
        const auto before = seen();
        PressKey(key);
        if (const auto handled = HandlesAll(); !handled) return handled;
        return seen() == before ? ::testing::AssertionSuccess()
                                : ::testing::AssertionFailure() << "something has changed";
    }

    // Waits for a window of the program with that title.
    RemoteWindow WindowCalled(const std::wstring& title) const {
        RemoteWindow found;
        EXPECT_TRUE(Becomes(
            [&] {
                for (const RemoteWindow& window : WindowsOf(main.ProcessId())) {
                    if (window.Text() == title) found = window;
                }
                return found.Exists();
            },
            true))
            << "no window with the expected title came";
        return found;
    }

    // Cancels a dialog and has the keyboard again.
    void Cancel(const RemoteWindow& dialog) {
        dialog.PostClick(IDCANCEL);
        ASSERT_TRUE(Becomes([&] { return dialog.Exists(); }, false));
        TakeKeyboard();
    }

    static constexpr const wchar_t* kSaveTitle = L"Save the chart as a picture";
    static constexpr const wchar_t* kLoadTitle = L"Choose a log file";
};

}  // namespace plotvane::test
