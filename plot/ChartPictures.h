#pragma once

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

    // To draw on; only while the pictures exist.
    const Picture& Grid() const { return *m_grid; }
    const Picture& Traces() const { return *m_traces; }

    // Lays the traces over the grid.
    void Combine();
    const Picture& Combined() const { return *m_combined; }

private:
    std::optional<Picture> m_grid;
    std::optional<Picture> m_traces;
    std::optional<Picture> m_combined;
};

// The memory of a picture, with everything drawn so far.
ChartPixels PixelsOf(const Picture& picture);

}  // namespace plotvane
