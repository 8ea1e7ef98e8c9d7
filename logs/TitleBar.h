#pragma once

#include <string_view>

namespace plotvane {

// The title of the main window, as the rooms see it.
struct TitleBar {
    virtual ~TitleBar() = default;

    // The title that names the module, in UTF-16 for the name of a log; also the one that returns once the
    // title-bar hint is over.
    virtual void SetModuleTitle(std::u16string_view title) = 0;
};

}  // namespace plotvane
