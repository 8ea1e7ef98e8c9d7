#pragma once

#include <optional>

#include "framework/Dc.h"
#include "framework/Gdi.h"

namespace plotvane {

// What a CMemoryDC draws on. Code that paints the same window for every sample keeps one, because creating a
// device context and a bitmap costs more than a small drawing.
class MemorySurface {
public:
    // A memory device context compatible with `like`, with a bitmap of this size; created again only if the
    // size differs. The last drawing may still be on it.
    HDC Fit(HDC like, int width, int height);

    // Selects the font, unless a font was given before, and keeps it selected until the surface is created
    // again or released: selecting a font takes longer than writing a short text. The font must live until
    // then.
    void KeepFont(const CFont& font);

    void Release();

private:
    int m_width = 0;
    int m_height = 0;
    // In this order, so that bitmap and font are out of the device context before it is freed.
    MemoryDc m_dc;
    CBitmap m_bitmap;
    std::optional<Selected> m_bitmapInDc;
    std::optional<Selected> m_fontInDc;
};

// Painting without flicker: the drawing goes to a bitmap that is first filled with the target's background
// colour. The destructor copies it to the target in one piece. Coordinates are the target's.
//
// If the target is not a screen (but a printer or a metafile), the drawing goes straight to it.
class CMemoryDC : public CDC {
public:
    // Covers the rectangle, in the target's logical units, or by default everything that the target shows.
    // The target must outlive this object.
    explicit CMemoryDC(CDC& target, const RECT* rect = nullptr);

    // The same on a surface that the caller keeps; it must outlive this object too. The surface still holds
    // its last drawing and is not filled, so the caller must cover all of it.
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
