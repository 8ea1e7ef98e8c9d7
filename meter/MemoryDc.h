#pragma once

#include <optional>

#include "framework/Dc.h"
#include "framework/Gdi.h"

namespace plotvane {

// What a CMemoryDC draws on. Whoever paints the same window with every sample keeps it: making a device
// context and a bitmap anew costs more than a small drawing.
class MemorySurface {
public:
    // A memory device context like `like` with a bitmap of this size, made anew only where the size differs.
    // What was drawn last may still be on it.
    HDC Fit(HDC like, int width, int height);

    // Selects the font, unless one was given before, and leaves it so until the surface is made anew or
    // released: to choose a font takes longer than to write a short text. It has to live until then.
    void KeepFont(const CFont& font);

    void Release();

private:
    int m_width = 0;
    int m_height = 0;
    // In this order, so that bitmap and font are out of the device context before it goes.
    MemoryDc m_dc;
    CBitmap m_bitmap;
    std::optional<Selected> m_bitmapInDc;
    std::optional<Selected> m_fontInDc;
};

// Painting without flicker: what is drawn on it goes to a picture of its own, filled with the target's
// background colour, and reaches the target in one piece when this object dies. Coordinates are the target's.
//
// A target that is no screen (a printer, a metafile) gets the drawing itself instead, at once.
class CMemoryDC : public CDC {
public:
    // Covers the rectangle, in the target's logical units, or what the target shows at all. The target has to
    // outlive this object.
    explicit CMemoryDC(CDC& target, const RECT* rect = nullptr);

    // The same on a surface that is kept, and has to outlive this object too. What was drawn on that last is
    // still there: who covers it anyway need not wait until it is filled.
    CMemoryDC(CDC& target, const RECT& rect, MemorySurface& surface);
    ~CMemoryDC();

    bool IsOffScreen() const { return m_offScreen; }

private:
    void Begin(MemorySurface& surface);

    CDC& m_target;
    CRect m_rect;
    const bool m_offScreen;
    MemorySurface m_own;
};

}  // namespace plotvane
