#pragma once

#include "tests/support/system/RemoteWindow.h"

namespace plotvane::test {

// The state of the run buttons as shown. Image numbers can only be compared with one another: equal numbers
// mean equal images.
struct RunButtonsSeen {
    bool stopEnabled = false;
    bool pauseEnabled = false;
    bool loadEnabled = false;
    LRESULT stopImage = 0;
    LRESULT pauseImage = 0;
    LRESULT loadImage = 0;

    bool operator==(const RunButtonsSeen&) const = default;
};

// The run buttons of a main window, all at one moment: no handler runs meanwhile.
RunButtonsSeen ButtonsOf(const RemoteWindow& main);

}  // namespace plotvane::test
