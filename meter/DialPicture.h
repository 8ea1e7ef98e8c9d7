#pragma once

#include "framework/Dc.h"
#include "framework/Gdi.h"
#include "meter/DialGeometry.h"
#include "meter/Gauge.h"

namespace plotvane {

// The parts of a meter that do not change with the value: background, bevel, face, ticks and the labels at
// the ends of the scale, drawn once; also the font, the places and the outline that the moving parts need.
class DialPicture {
public:
    // For a window with this client rectangle.
    DialPicture(const CRect& client, const Gauge& gauge);
    DialPicture(const DialPicture&) = delete;
    DialPicture& operator=(const DialPicture&) = delete;

    // False if Windows had no memory for it; try again later.
    explicit operator bool() const { return static_cast<bool>(m_picture); }

    HDC Dc() const { return m_picture.Dc(); }
    const DialGeometry& Geometry() const { return m_geometry; }

    // Null, and meaningless, if the geometry has no dial.
    HRGN FaceRegion() const { return m_faceRegion.Get(); }
    const CFont& Font() const { return m_font; }
    const DialTextPlaces& TextPlaces() const { return m_textPlaces; }

    // Holds all pixels of a text of that width with the middle of its baseline there.
    DialRect TextBounds(DialPoint place, int width) const;

private:
    void DrawFace(CDC& dc, const Gauge& gauge);
    void DrawTicks(CDC& dc);
    void DrawLabels(CDC& dc, const Gauge& gauge);

    const DialGeometry m_geometry;
    DialTextPlaces m_textPlaces;
    int m_ascent = 0;  // pixels of the font above the baseline, and below it
    int m_descent = 0;
    CRgn m_faceRegion;
    CFont m_font;
    const Picture m_picture;
};

}  // namespace plotvane
