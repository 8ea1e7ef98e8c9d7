#pragma once

#include <string_view>

namespace plotvane {

// The title of the main window, as the rooms see it.
struct TitleBar {
    virtual ~TitleBar() = default;

    // The title that names the module; also the one that returns once the title-bar hint is over.
    virtual void SetModuleTitle(std::string_view title) = 0;
};

}  // namespace plotvane
