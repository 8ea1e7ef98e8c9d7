#pragma once

#include <optional>

#include "framework/Gdi.h"
#include "plot/chart/GridOverlay.h"

namespace plotvane {

// What the chart shows, as an off-screen picture: the scrolling traces, and grid and labels laid over them.
// It is kept between samples: making a picture costs more than copying it.
class ChartPicture {
public:
    // Makes the picture unless it exists; one that exists keeps its size. False, and no picture, if the
    // client has no area or Windows has no memory.
    bool Create(int width, int height);
    void Release() { m_picture.reset(); }

    explicit operator bool() const { return m_picture.has_value(); }

    // To draw on and to copy from, while the picture exists.
    const Picture& Get() const { return *m_picture; }

    // Grid and labels are from now on all that the picture holds and that is not black.
    void TakeGrid();

    // Traces are drawn and moved only between these two.
    void LiftGrid();
    void LayGrid();

    // Moves what lies inside `area` to the left; the strip laid bare is left to the caller.
    void ScrollLeft(const PixelRect& area, int shift);

private:
    std::optional<Picture> m_picture;
    GridOverlay m_grid;
};

// The memory of a picture, with everything drawn so far.
ChartPixels PixelsOf(const Picture& picture);

}  // namespace plotvane
