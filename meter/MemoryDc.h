#pragma once

#include <optional>

#include "framework/Dc.h"
#include "framework/Gdi.h"

namespace plotvane {

// Painting without flicker: what is drawn on it goes to a picture of its own, filled with the target's
// background colour, and reaches the target in one piece when this object dies. Coordinates are the target's.
//
// A target that is no screen (a printer, a metafile) gets the drawing itself instead, at once.
class CMemoryDC : public CDC {
public:
    // Covers the rectangle, in the target's logical units, or what the target shows at all. The target has to
    // outlive this object.
    explicit CMemoryDC(CDC& target, const RECT* rect = nullptr);
    ~CMemoryDC();

    bool IsOffScreen() const { return m_offScreen; }

private:
    void CreatePicture();

    CDC& m_target;
    CRect m_rect;
    const bool m_offScreen;
    // In this order, so that the bitmap is out of the device context before either goes.
    MemoryDc m_dc;
    CBitmap m_bitmap;
    std::optional<Selected> m_bitmapInDc;
};

}  // namespace plotvane
