#pragma once

#include <vector>

#include "controls/ColorBox.h"
#include "framework/Wnd.h"

namespace plotvane {

// A row of colour swatches. Each is a window over a placeholder, a control of the template that says where it
// lies and takes the clicks.
class Swatches {
public:
    // The ids of placeholders and windows count up from these. The dialog must outlive this.
    Swatches(CWnd& dialog, int firstPlaceholder, int firstWindow, int count)
        : m_dialog(dialog),
          m_firstPlaceholder(firstPlaceholder),
          m_firstWindow(firstWindow),
          m_boxes(static_cast<std::size_t>(count)) {}

    // Creates the windows, once the dialog has its controls. Swatches count from 0.
    void Create(Colour colour, bool shown);

    // Moves every swatch to where its placeholder is now. The caller redraws the dialog.
    void FollowPlaceholders();

    // The swatch under a point of the screen, shown or not; -1 for none.
    int At(POINT screen) const;

    void Show(int swatch, bool shown);
    void Redraw(int swatch) { Box(swatch).Invalidate(); }
    void SetColour(int swatch, Colour colour);
    void SetColours(Colour colour);

private:
    int Count() const { return static_cast<int>(m_boxes.size()); }
    CColorBox& Box(int swatch) { return m_boxes[static_cast<std::size_t>(swatch)]; }

    CWnd& m_dialog;
    const int m_firstPlaceholder;
    const int m_firstWindow;
    std::vector<CColorBox> m_boxes;
};

}  // namespace plotvane
