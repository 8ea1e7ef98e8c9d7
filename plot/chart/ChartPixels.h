#pragma once

#include <cstdint>

#include "base/Colour.h"
#include "plot/chart/ChartGeometry.h"

namespace plotvane {

// A colour as a pixel of a 32-bit picture: colours have red in their lowest byte, pictures have blue there.
std::uint32_t PixelOf(Colour colour);

// The pixels of a 32-bit picture, or of a part of one: rows from top to bottom. A pixel is 0x00RRGGBB. The
// platform's drawing calls may leave anything in the high byte, which is ignored.
struct ChartPixels {
    ChartPixels() = default;
    ChartPixels(std::uint32_t* first, int columns, int rows) : ChartPixels(first, columns, rows, columns) {}
    ChartPixels(std::uint32_t* first, int columns, int rows, int toNextRow)
        : pixels(first), width(columns), height(rows), rowDistance(toNextRow) {}

    std::uint32_t* pixels = nullptr;
    int width = 0;
    int height = 0;
    int rowDistance = 0;  // pixels from one row to the next; more than `width` in a part

    std::uint32_t* Row(int y) const;

    // Moves the pixels inside `area` to the left by `shift` pixels. What leaves the area is lost, so that no
    // trace gets among the labels. The caller draws on the strip that this uncovers at the right edge. The
    // area is clipped to the picture.
    void ScrollLeft(const PixelRect& area, int shift) const;

    // The part of the picture that begins `shift` pixels further right, after this has made it look as this
    // part would after ScrollLeft. What is inside the area stays where it is in memory, and what is around it
    // moves along, which is much less. There must be `shift` more pixels in each row.
    ChartPixels SlideLeft(const PixelRect& area, int shift) const;

    // Sets every fourth pixel of a row or column, from the area's first to the one before its end.
    void DotRow(const PixelRect& area, int y, Colour colour) const;
    void DotColumn(const PixelRect& area, int x, Colour colour) const;

private:
    PixelRect Clipped(const PixelRect& area) const;
    void Dot(int x, int y, std::uint32_t pixel) const;
};

}  // namespace plotvane
