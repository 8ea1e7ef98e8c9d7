#include "tests/support/system/RunButtons.h"

#include "res/resource.h"

namespace plotvane::test {

// The program answers the question for an image only between two handlers. So nothing changes while this
// function reads the rest.
RunButtonsSeen ButtonsOf(const RemoteWindow& main) {
    const auto image = [&](int id) { return main.Control(id).Send(BM_GETIMAGE, IMAGE_ICON); };
    RunButtonsSeen seen;
    seen.stopImage = image(IDC_STOP);
    seen.pauseImage = image(IDC_PAUSE);
    seen.loadImage = image(IDC_LOAD_LOG);
    seen.stopEnabled = main.IsEnabled(IDC_STOP);
    seen.pauseEnabled = main.IsEnabled(IDC_PAUSE);
    seen.loadEnabled = main.IsEnabled(IDC_LOAD_LOG);
    return seen;
}

}  // namespace plotvane::test
