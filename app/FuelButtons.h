#pragma once

#include "framework/Gdi.h"
#include "framework/Wnd.h"

namespace plotvane {

// The two buttons that open the meters of fuel consumption and mileage. Other controls may lie over them.
class FuelButtons {
public:
    // The dialog must outlive this.
    explicit FuelButtons(CWnd& dialog) : m_dialog(dialog) {}

    void Show(bool shown);

    // Call it when controls around them have been shown, hidden or moved.
    void FitToCover();

private:
    void Fit(int id);

    CWnd& m_dialog;
    CIcon m_image;  // loaded when first needed
    bool m_shown = false;
};

}  // namespace plotvane
