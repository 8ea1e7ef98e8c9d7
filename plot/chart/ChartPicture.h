#pragma once

#include <optional>

#include "framework/Gdi.h"
#include "plot/chart/GridOverlay.h"

namespace plotvane {

// What the chart shows, as an off-screen picture: the scrolling traces with the grid and the labels laid over
// them. It is kept between samples, because making a picture costs more than copying it.
//
// It is a part of a wider picture, and to scroll it slides along there: the traces stay where they are in
// memory. Only when it has reached the end is everything moved back to the beginning.
class ChartPicture {
public:
    // Makes the picture unless it exists; an existing one keeps its size. False, and no picture, if the
    // client has no area or Windows has no memory.
    bool Create(int width, int height);
    void Release() { m_sheet.reset(); }

    explicit operator bool() const { return m_sheet.has_value(); }

    // For drawing and copying, while the picture exists. The origin of the device context is that of the
    // picture. The pixels are those drawn so far, until it is scrolled.
    HDC Dc() const { return m_sheet->Dc(); }
    int Width() const { return m_width; }
    int Height() const { return m_sheet->Height(); }
    ChartPixels Pixels() const { return PixelsAt(m_left); }

    // Takes everything in the picture that is not black as grid and labels.
    void TakeGrid();

    // Traces may be drawn and moved only between these two calls.
    void LiftGrid();
    void LayGrid();

    // Moves the pixels inside `area` to the left. The caller draws on the strip that this uncovers.
    void ScrollLeft(const PixelRect& area, int shift);

private:
    ChartPixels PixelsAt(int left) const;
    void MoveTo(int left);

    std::optional<Picture> m_sheet;
    int m_width = 0;
    int m_left = 0;  // where the picture begins on the sheet
    GridOverlay m_grid;
};

}  // namespace plotvane
