#pragma once

#include <algorithm>
#include <optional>

#include "framework/Gdi.h"
#include "plot/ChartPixels.h"

namespace plotvane {

// The off-screen pictures of the chart, all of one size: the grid with its labels, the scrolling traces, and
// both laid over each other, which is what the window shows. The last is kept between paints: making a
// picture costs more than copying it.
class ChartPictures {
public:
    // Makes the pictures unless they exist; those that exist keep their size. False, and no pictures, if the
    // client has no area or Windows has no memory.
    bool Create(int width, int height);
    void Release();

    explicit operator bool() const { return m_grid.has_value(); }

    // To draw on, while the pictures exist. Who has drawn says where, so that the combined picture follows.
    const Picture& Grid() const { return *m_grid; }
    const Picture& Traces() const { return *m_traces; }
    void ChangedFrom(int column) { m_staleFrom = std::min(m_staleFrom, column); }

    // Moves what lies inside `area` of the traces to the left; the strip laid bare is left to the caller.
    // `keepCombined` leaves the combined picture as it is until it is asked for again.
    void ScrollTraces(const PixelRect& area, int shift, bool keepCombined);

    // Traces over grid, with everything that has changed, and as it was when last asked for.
    const Picture& Combined();
    const Picture& LastCombined() const { return *m_combined; }

private:
    std::optional<Picture> m_grid;
    std::optional<Picture> m_traces;
    std::optional<Picture> m_combined;
    int m_staleFrom = 0;  // the combined picture is right in all columns before this one
};

// The memory of a picture, with everything drawn so far.
ChartPixels PixelsOf(const Picture& picture);

}  // namespace plotvane
