#pragma once

#include <windows.h>

#include <commdlg.h>

#include <optional>

#include "model/Colour.h"

namespace plotvane {

// The system's colour chooser, with its basic colours only: none is preselected, and the part for colours of
// one's own stays closed. It has no owner, so all other windows go on working.
class ColorChooser {
public:
    ColorChooser() = default;
    ColorChooser(const ColorChooser&) = delete;
    ColorChooser& operator=(const ColorChooser&) = delete;

    // Dispatches messages until the user has chosen; nothing if he cancels.
    std::optional<Colour> Run();

    // Ends Run without a colour. For handlers that Run dispatches.
    void Cancel();

private:
    static UINT_PTR CALLBACK Hook(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

    HWND m_dialog = nullptr;
};

}  // namespace plotvane
