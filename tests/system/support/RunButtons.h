#pragma once

#include "tests/system/support/RemoteWindow.h"

namespace plotvane::test {

// What the run buttons show. Images are compared with one another only: where one looks like another, the
// numbers are equal.
struct RunButtonsSeen {
    bool stopEnabled = false;
    bool pauseEnabled = false;
    bool loadEnabled = false;
    LRESULT stopImage = 0;
    LRESULT pauseImage = 0;
    LRESULT loadImage = 0;

    bool operator==(const RunButtonsSeen&) const = default;
};

// Of a main window. All of it belongs together: it is not looked at in the midst of a handler.
RunButtonsSeen ButtonsOf(const RemoteWindow& main);

}  // namespace plotvane::test
