#pragma once

#include <optional>

#include "framework/Gdi.h"
#include "plot/chart/GridOverlay.h"

namespace plotvane {

// What the chart shows, as an off-screen picture: the scrolling traces with the grid and the labels laid over
// them. It is kept between samples, because making a picture costs more than copying it.
class ChartPicture {
public:
    // Makes the picture unless it exists; an existing one keeps its size. False, and no picture, if the
    // client has no area or Windows has no memory.
    bool Create(int width, int height);
    void Release() { m_picture.reset(); }

    explicit operator bool() const { return m_picture.has_value(); }

    // For drawing and copying, while the picture exists.
    const Picture& Get() const { return *m_picture; }

    // Takes everything in the picture that is not black as grid and labels.
    void TakeGrid();

    // Traces may be drawn and moved only between these two calls.
    void LiftGrid();
    void LayGrid();

    // Moves the pixels inside `area` to the left. The caller draws on the strip that this uncovers.
    void ScrollLeft(const PixelRect& area, int shift);

private:
    std::optional<Picture> m_picture;
    GridOverlay m_grid;
};

// The pixels of the picture as drawn so far.
ChartPixels PixelsOf(const Picture& picture);

}  // namespace plotvane
