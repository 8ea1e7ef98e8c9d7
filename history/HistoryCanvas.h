#pragma once

#include <optional>
#include <string>
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

    // Draws what is to be seen now; the canvas must not be false, and the layout has its size. Gives the
    // parts that may look different now. Throws where there is no memory, even without what the last picture
    // has left.
    std::vector<PixelRect> Draw(const LookBack& state, const HistoryLook& look, const HistoryLayout& layout,
                                const std::vector<ListedTrace>& list, const std::string& note);

private:
    std::vector<PixelRect> DrawPicture(HistoryPicture picture);

    Picture m_shown;
    Selected m_fontInDc;
    TracePlotter m_plotter;
    std::optional<HistoryPicture> m_drawn;
};

}  // namespace plotvane
