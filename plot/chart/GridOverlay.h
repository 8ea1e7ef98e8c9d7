#pragma once

#include <cstdint>
#include <vector>

#include "plot/chart/ChartPixels.h"

namespace plotvane {

// The grid of the chart, laid over a picture of the traces: where both have a pixel their bits are ORed, so
// that the colours mix. What it covers is kept, so that it can be lifted off again and the traces moved
// beneath it. In this way one picture is all that has to be moved and shown with each sample; on a black
// ground the grid is only a few thousand pixels of it.
class GridOverlay {
public:
    // From now on the grid is every pixel of the picture that is not black, its background too. There is no
    // grid if memory ends.
    void TakeFrom(const ChartPixels& picture);

    // On a picture of the size that the grid was taken from; with any other it does nothing.
    void LayOn(const ChartPixels& traces);

    // The picture is as it was before the grid was laid on it. For the same picture, whose pixels under the
    // grid nobody has changed since.
    void LiftOff(const ChartPixels& picture) const;

private:
    // Pixels side by side, counted from the picture's first.
    struct Run {
        std::uint32_t first = 0;
        std::uint32_t length = 0;
    };

    bool Fits(const ChartPixels& picture) const;

    bool m_isTaken = false;  // the rest belongs together
    int m_width = 0;
    int m_height = 0;
    std::vector<Run> m_runs;
    // The pixels of all runs, one run behind the other.
    std::vector<std::uint32_t> m_grid;
    std::vector<std::uint32_t> m_covered;
};

}  // namespace plotvane
