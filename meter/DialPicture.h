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
    // For a window with this client rectangle, on a device compatible with `like`.
    DialPicture(HDC like, const CRect& client, const Gauge& gauge);
    DialPicture(const DialPicture&) = delete;
    DialPicture& operator=(const DialPicture&) = delete;

    // False if Windows had no memory for it; try again later.
    explicit operator bool() const { return m_dc && m_bitmap; }

    HDC Dc() const { return m_dc.Get(); }
    const DialGeometry& Geometry() const { return m_geometry; }

    // Null, and meaningless, if the geometry has no dial.
    HRGN FaceRegion() const { return m_faceRegion.Get(); }
    const CFont& Font() const { return m_font; }
    const DialTextPlaces& TextPlaces() const { return m_textPlaces; }

private:
    void DrawFace(CDC& dc, const Gauge& gauge);
    void DrawTicks(CDC& dc);
    void DrawLabels(CDC& dc, const Gauge& gauge);

    const DialGeometry m_geometry;
    DialTextPlaces m_textPlaces;
    CRgn m_faceRegion;
    CFont m_font;
    // In this order, so that the bitmap is out of the device context before either is freed.
    MemoryDc m_dc;
    CBitmap m_bitmap;
    Selected m_bitmapInDc;
};

}  // namespace plotvane
