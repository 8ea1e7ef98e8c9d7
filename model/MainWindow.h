#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

namespace plotvane {

// What the portable code asks of the main window. Each call may dispatch messages.
struct MainWindow {
    virtual ~MainWindow() = default;

    // Texts by their string ids (res/resource.h). Returns when the user has confirmed the message.
    virtual void ShowMessage(int textId, int captionId) = 0;

    // Lets the user choose a log. Nothing if the user cancels.
    virtual std::optional<std::filesystem::path> ChooseLog() = 0;

    // The title that names the module, in UTF-16 because a log's name may have any character.
    virtual void SetModuleTitle(std::u16string_view title) = 0;

    // Whether the machine stays awake, with its display on, from now on.
    virtual void StayAwake(bool on) = 0;

    // Closes the window as the user would.
    virtual void Close() = 0;
};

}  // namespace plotvane
