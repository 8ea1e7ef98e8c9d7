#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "link/Acquisition.h"
#include "tests/support/FakePump.h"
#include "tests/support/FakeViews.h"

namespace plotvane::test {

// The main dialog's part in an acquisition. It notes what it was asked for and how its run buttons look.
class FakeDialog : public MainWindow, public RunButtons {
public:
    // What the user does.
    void Stop() { control->Stop(); }
    void Pause() { control->Pause(); }

    // MainWindow.
    void ShowMessage(int textId, int captionId) override {
        messages.emplace_back(textId, captionId);
        if (whileMessage) whileMessage();
    }
    std::optional<std::filesystem::path> ChooseLog() override {
        ++asked;
        if (whileAsked) whileAsked();
        return choice;
    }
    void SetModuleTitle(std::u16string_view text) override {
        title = text;
        ++titles;
    }
    void StayAwake(bool on) override { isAwake = on; }
    void Close() override {
        ++closes;
        control->Stop();
    }

    // RunButtons.
    void Show(const RunButtonsLook& newLook) override { look = newLook; }

    RunControl* control = nullptr;
    int closes = 0;
    std::vector<std::pair<int, int>> messages;
    std::function<void()> whileMessage;  // what else happens while a message is shown
    RunButtonsLook look;
    std::u16string title;
    int titles = 0;
    bool isAwake = false;
    std::optional<std::filesystem::path> choice;  // nothing: the user cancels
    int asked = 0;
    std::function<void()> whileAsked;  // what else happens while the file dialog is open
};

}  // namespace plotvane::test
