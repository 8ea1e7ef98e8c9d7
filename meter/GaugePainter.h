#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "framework/Dc.h"
#include "framework/Rect.h"
#include "meter/Gauge.h"
#include "meter/MovingParts.h"

namespace plotvane {

// Paints a gauge. It keeps the dial behind the moving parts, which is drawn when it is first needed, and the
// finished picture. So a new value costs what has moved: its rectangles are copied from the dial, drawn and
// copied to the screen.
class GaugePainter {
public:
    // `peakLabel` stands before the peak value.
    explicit GaugePainter(std::string peakLabel);
    ~GaugePainter();

    // Call this when the size of the client area changes, or anything of the gauge that asks for it.
    void DiscardDial();

    // True after Paint, unless Windows had no memory or the client area is empty.
    bool HasDial() const { return m_sheet != nullptr; }

    // Covers the whole client area of `target`, a device context for a screen whose origin is that of the
    // rectangle, in one piece.
    void Paint(CDC& target, const CRect& client, const Gauge& gauge);

    // Whether the gauge looks different from what was painted last. A needle that moves by less than a pixel
    // does not. Needs the dial.
    bool LooksDifferent(const Gauge& gauge);

    // Paints the difference that the last call of LooksDifferent has found, and nothing else.
    void PaintDifference(CDC& target);

private:
    struct Sheet;

    void PlaceNext(const Gauge& gauge);
    void DrawNext(CDC& dc);
    void DrawPart(CDC& dc, const MovingPart& part) const;

    const std::string m_peakLabel;
    std::unique_ptr<Sheet> m_sheet;
    // These are kept for their memory: painting a value allocates nothing once warm.
    MovingParts m_drawn;  // what the picture shows
    MovingParts m_next;   // what it is to show
    RedrawPlan m_plan;
    std::vector<CRect> m_shown;
    // What a paint has changed. The target may have taken only a part of it, for a window is painted where it
    // is invalid: the next difference includes it.
    DialRect m_perhapsUnseen;
};

}  // namespace plotvane
