#pragma once

#include <memory>
#include <string>
#include <utility>

#include "framework/Dc.h"
#include "meter/DialPicture.h"
#include "meter/Gauge.h"
#include "meter/MemoryDc.h"

namespace plotvane {

// Paints a gauge. The dial behind the needle is drawn when it is first needed and kept until it is discarded;
// a new value costs one block copy, at most three small polygons and two texts.
class GaugePainter {
public:
    // `peakLabel` stands before the peak value.
    explicit GaugePainter(std::string peakLabel) : m_peakLabel(std::move(peakLabel)) {}

    // Call this when the size of the client area changes, or anything of the gauge that asks for it.
    void DiscardDial();

    // Covers the whole client area of `target`, a device context for a screen whose origin is that of the
    // rectangle, in one piece.
    void Paint(CDC& target, const CRect& client, const Gauge& gauge);

private:
    void DrawMarkers(CDC& dc, const Gauge& gauge) const;
    void DrawNeedle(CDC& dc, const Gauge& gauge) const;
    void DrawTexts(CDC& dc, const Gauge& gauge);

    const std::string m_peakLabel;
    std::unique_ptr<DialPicture> m_dial;
    MemorySurface m_surface;  // goes before the dial, whose font it keeps
    std::string m_text;       // kept for its memory: painting a value allocates nothing once warm
};

}  // namespace plotvane
