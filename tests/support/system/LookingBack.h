#pragma once

#include <filesystem>
#include <string>

#include "tests/support/system/History.h"
#include "tests/support/system/Keyboard.h"
#include "tests/support/system/Replay.h"

namespace plotvane::test {

// A program whose user looks back at the drive, live or in a replay.
class LookingBack : public Replay {
protected:
    void StartLive() {
        session.StartWithHost();
        main = session.Main();
    }
    // Waits until the program shows the record.
    void Send(const std::string& record, const std::wstring& firstBox) {
        session.Host().SendRecord(record);
        ASSERT_TRUE(session.Shows(0, firstBox));
    }

    // Opens the window while the pointer is far from it, so that the last values in view are told.
    void Open() {
        ::SetCursorPos(0, 0);
        main.Post(WM_COMMAND, MAKEWPARAM(ID_KEY_HISTORY, 1));
        history = OpenedHistory(main);
    }

    // A key that goes to the window, without Ctrl and Shift.
    void Key(WPARAM key) const { history.Send(WM_KEYDOWN, key, 1); }

    // A key of the machine's keyboard, which the window is given.
    void PressHere(test::Key key, int timesDown = 1) const {
        ASSERT_TRUE(GiveKeyboard(history));
        PressKey(key, timesDown);
    }
    void ClickPlot(int column) const {
        const LPARAM place = MAKELPARAM(HistoryPlot::kLeft + column, 100);
        history.Send(WM_LBUTTONDOWN, MK_LBUTTON, place);
        history.Send(WM_LBUTTONUP, 0, place);
    }

    // Each presses the keys for it, answers the dialog that comes, and waits for the file.
    void SaveSamples(const std::filesystem::path& path) {
        AskForSamples(path);
        EXPECT_TRUE(IsThere(path));
    }
    void SavePicture(const std::filesystem::path& path) {
        Ask(Ctrl('S'), L"Save the picture", path);
        EXPECT_TRUE(IsThere(path));
    }
    // The same without waiting.
    void AskForSamples(const std::filesystem::path& path) {
        Ask({'S', true, true}, L"Save the samples", path);
    }
    static ::testing::AssertionResult IsThere(const std::filesystem::path& path) {
        return Becomes([&] { return CanBeRead(path); }, true);
    }

    ::testing::AssertionResult IsTitled(const std::wstring& title) const {
        return Becomes([this] { return history.Text(); }, title);
    }
    ::testing::AssertionResult TableHas(const std::wstring& text) const {
        std::wstring table;
        return Becomes([&] { return (table = TableOf(history)).find(text) != std::wstring::npos; }, true)
               << ", and the table is " << ::testing::PrintToString(table);
    }

    RemoteWindow history;

private:
    void Ask(test::Key key, const std::wstring& title, const std::filesystem::path& path) {
        PressHere(key);
        RemoteWindow dialog;
        ASSERT_TRUE(Becomes([&] { return (dialog = WindowCalled(title)).Exists(); }, true));
        Type(dialog, path);
        dialog.PostClick(IDOK);
        ASSERT_TRUE(Becomes([&] { return dialog.Exists(); }, false));
    }
    RemoteWindow WindowCalled(const std::wstring& title) const {
        for (const RemoteWindow& window : WindowsOf(main.ProcessId())) {
            if (window.Text() == title) return window;
        }
        return {};
    }
};

}  // namespace plotvane::test
