#pragma once

#include <optional>
#include <span>

#include "framework/Dc.h"
#include "framework/Gdi.h"

namespace plotvane {

// Painting without flicker: the drawing goes to a `Picture`, which is what everything off-screen is drawn on,
// and the destructor copies it to the target in one piece. Coordinates are the target's. The target must
// outlive this object.
class CMemoryDC : public CDC {
public:
    // A picture of its own, first filled with the target's background colour. It covers the rectangle, in the
    // target's logical units, or by default everything that the target shows.
    //
    // If the target is not a screen (but a printer or a metafile), the drawing goes straight to it.
    explicit CMemoryDC(CDC& target, const RECT* rect = nullptr);

    // A picture that the caller keeps, with the last drawing still on it. Only these rectangles of it are
    // copied. The target is a screen whose units are pixels, and its origin is the picture's. Picture and
    // rectangles must outlive this object too.
    CMemoryDC(CDC& target, const Picture& kept, std::span<const CRect> shown);
    ~CMemoryDC();

    bool IsOffScreen() const { return m_hDC != m_target.GetSafeHdc(); }

private:
    void UseOwnPicture();

    CDC& m_target;
    CRect m_rect;
    std::optional<Picture> m_own;
    std::span<const CRect> m_shown;  // empty if the drawing goes straight to the target
};

}  // namespace plotvane
