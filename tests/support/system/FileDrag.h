#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <memory>
#include <thread>
#include <vector>

#include "tests/support/system/RemoteWindow.h"

namespace plotvane::test {

// A user who drags files from a window of another program: a small window of this process, in a thread of its
// own, and the machine's mouse. The system does the rest. From the constructor on, the left button is down.
class FileDrag {
public:
    explicit FileDrag(std::vector<std::filesystem::path> files);
    // Lets go over the small window, which takes nothing.
    ~FileDrag();
    FileDrag(const FileDrag&) = delete;
    FileDrag& operator=(const FileDrag&) = delete;

    // Moves over the middle of a window, and returns after the system has asked there what a drop would do.
    ::testing::AssertionResult MoveOver(const RemoteWindow& window);

    // What the pointer shows there: DROPEFFECT_NONE if a drop is refused.
    DWORD Effect() const;

    // Lets go, and waits until the system has done with the drop. Returns what came of it.
    DWORD Drop();

private:
    struct Source;

    void Run(std::vector<std::filesystem::path> files);
    void LetGo();

    const std::unique_ptr<Source> m_source;
    bool m_isDown = true;  // the button
    std::thread m_thread;
};

}  // namespace plotvane::test
