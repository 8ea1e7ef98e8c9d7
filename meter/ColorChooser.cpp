#include "meter/ColorChooser.h"

#include <array>

#include "framework/CommonDialogs.h"

namespace plotvane {

std::optional<Colour> ColorChooser::Run() {
    std::array<COLORREF, 16> ownColours;  // the chooser requires room for as many as it shows
    ownColours.fill(kWhite);
    CHOOSECOLORW options{};
    options.lStructSize = sizeof options;
    options.lpCustColors = ownColours.data();
    options.Flags = CC_ANYCOLOR | CC_ENABLEHOOK | CC_PREVENTFULLOPEN;
    options.lCustData = reinterpret_cast<LPARAM>(this);
    options.lpfnHook = &Hook;
    auto* const choose = CommonDialogs().Function<BOOL WINAPI(CHOOSECOLORW*)>("ChooseColorW");
    const bool chosen = choose && choose(&options) != 0;
    m_dialog = nullptr;
    return chosen ? std::optional<Colour>{options.rgbResult} : std::nullopt;
}

void ColorChooser::Cancel() {
    if (m_dialog) ::PostMessageW(m_dialog, WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED), 0);
}

UINT_PTR CALLBACK ColorChooser::Hook(HWND dialog, UINT message, WPARAM, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        const auto& options = *reinterpret_cast<const CHOOSECOLORW*>(lParam);
        reinterpret_cast<ColorChooser*>(options.lCustData)->m_dialog = dialog;
    }
    return 0;  // the chooser does the rest
}

}  // namespace plotvane
