#pragma once

#include <windows.h>

#include <commdlg.h>

#include <optional>

#include "base/Colour.h"

namespace plotvane {

// The system's colour chooser with its basic colours only: none is selected at first, and the part for custom
// colours stays closed. It has no owner, so all other windows keep working.
class ColorChooser {
public:
    ColorChooser() = default;
    ColorChooser(const ColorChooser&) = delete;
    ColorChooser& operator=(const ColorChooser&) = delete;

    // Dispatches messages until the user has chosen a colour; nothing if the user cancels.
    std::optional<Colour> Run();

    // Makes Run return without a colour; for handlers that Run dispatches.
    void Cancel();

private:
    static UINT_PTR CALLBACK Hook(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

    HWND m_dialog = nullptr;
};

}  // namespace plotvane
