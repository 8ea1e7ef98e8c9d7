#pragma once

#include <optional>
#include <vector>

#include "framework/Gdi.h"
#include "history/HistoryPicture.h"

namespace plotvane {

// The picture of the window that looks back, in memory. From one moment to the next, only what has changed is
// drawn.
class HistoryCanvas {
public:
    // In pixels. False, as a Picture is, where there is no memory for it. The font must outlive this.
    HistoryCanvas(int width, int height, const CFont& font)
        : m_shown(width, height), m_fontInDc(m_shown.Dc(), font) {}
    explicit operator bool() const { return static_cast<bool>(m_shown); }

    // As it was drawn last; all black before.
    const Picture& Shown() const { return m_shown; }

    // Draws a picture of this size; the canvas must not be false. Gives the parts that may look different
    // now.
    std::vector<PixelRect> Draw(HistoryPicture picture);

private:
    Picture m_shown;
    Selected m_fontInDc;
    std::optional<HistoryPicture> m_drawn;
};

}  // namespace plotvane
