#pragma once

#include <cstdint>

#include "base/Colour.h"
#include "plot/chart/ChartGeometry.h"

namespace plotvane {

// A colour as a pixel of a 32-bit picture: colours have red in their lowest byte, pictures have blue there.
std::uint32_t PixelOf(Colour colour);

// The pixels of a 32-bit picture, rows from top to bottom without gaps. A pixel is 0x00RRGGBB. The platform's
// drawing calls may leave anything in the high byte, which is ignored.
struct ChartPixels {
    std::uint32_t* pixels = nullptr;
    int width = 0;
    int height = 0;

    // Moves the pixels inside `area` to the left by `shift` pixels. What leaves the area is lost, so that no
    // trace gets among the labels. The caller draws on the strip that this uncovers at the right edge. The
    // area is clipped to the picture.
    void ScrollLeft(const PixelRect& area, int shift) const;

    // Sets every fourth pixel of a row or column, from the area's first to the one before its end.
    void DotRow(const PixelRect& area, int y, Colour colour) const;
    void DotColumn(const PixelRect& area, int x, Colour colour) const;

private:
    PixelRect Clipped(const PixelRect& area) const;
    std::uint32_t* Row(int y) const;
    void Dot(int x, int y, std::uint32_t pixel) const;
};

}  // namespace plotvane
