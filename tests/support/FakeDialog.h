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

// The main dialog's part in an acquisition: what it was asked for, and what its run buttons show.
class FakeDialog : public LoopOwner, public RunButtons, public TitleBar, public LogChooser {
public:
    // LoopOwner.
    void Stop() override { control->Stop(); }
    void Pause() override { control->Pause(); }
    void Close() override {
        ++closes;
        control->Stop();
    }
    void ShowMessage(int textId, int captionId) override {
        messages.emplace_back(textId, captionId);
        if (whileMessage) whileMessage();
    }

    // RunButtons.
    void ShowStop(bool active) override { stopActive = active; }
    void ShowPause(PauseImage image) override { pause = image; }
    void ShowLoad(bool active) override { loadActive = active; }
    void EnableStop(bool enabled) override { stopEnabled = enabled; }
    void EnablePause(bool enabled) override { pauseEnabled = enabled; }
    void EnableLoad(bool enabled) override { loadEnabled = enabled; }

    // TitleBar.
    void SetModuleTitle(std::u16string_view text) override {
        title = text;
        ++titles;
    }

    // LogChooser.
    std::optional<std::filesystem::path> ChooseLog() override {
        ++asked;
        if (whileAsked) whileAsked();
        return choice;
    }

    RunControl* control = nullptr;
    int closes = 0;
    std::vector<std::pair<int, int>> messages;
    std::function<void()> whileMessage;  // what else happens while a message is shown
    bool stopActive = false;
    PauseImage pause = PauseImage::Idle;
    bool loadActive = false;
    bool stopEnabled = false;
    bool pauseEnabled = false;
    bool loadEnabled = true;
    std::u16string title;
    int titles = 0;
    std::optional<std::filesystem::path> choice;  // nothing: the user cancels
    int asked = 0;
    std::function<void()> whileAsked;  // what else happens while the file dialog is open
};

}  // namespace plotvane::test
