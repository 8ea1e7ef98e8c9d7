#pragma once

namespace plotvane {

// What the acquisition asks of the main dialog. Each call may dispatch messages.
struct LoopOwner {
    virtual ~LoopOwner() = default;

    // As if the user had pressed the button, or closed the window.
    virtual void Stop() = 0;
    virtual void Pause() = 0;
    virtual void Close() = 0;

    // Texts by their string ids (res/resource.h); returns when the user has confirmed the message.
    virtual void ShowMessage(int textId, int captionId) = 0;
};

}  // namespace plotvane
