#pragma once

#include <cstdint>
#include <vector>

#include "plot/chart/ChartPixels.h"

namespace plotvane {

// The grid of the chart, laid over a picture of the traces. Where both have a pixel their bits are ORed, so
// that the colours mix. The overlay keeps what it covers, so that it can be lifted off and the traces moved
// beneath it. This way each sample moves and shows only one picture. On black, the grid is only a few
// thousand of its pixels.
class GridOverlay {
public:
    // Takes every pixel of the picture that is not black as the grid, including a coloured background. If
    // memory runs out, there is no grid.
    void TakeFrom(const ChartPixels& picture);

    // Lays the grid on a picture of the size that it was taken from. With any other picture it does nothing.
    void LayOn(const ChartPixels& traces);

    // Restores the picture as it was before Lay. It must be the same picture, with its pixels under the grid
    // unchanged.
    void LiftOff(const ChartPixels& picture) const;

private:
    // Adjacent pixels of a row.
    struct Run {
        std::uint32_t first = 0;  // how far it is in memory from the picture's first pixel
        std::uint32_t length = 0;
    };

    void TakeRow(const ChartPixels& picture, int y);
    bool Fits(const ChartPixels& picture) const;

    bool m_isTaken = false;  // the other members are valid together
    int m_width = 0;
    int m_height = 0;
    int m_rowDistance = 0;
    std::vector<Run> m_runs;
    // The pixels of all runs, one run after the other.
    std::vector<std::uint32_t> m_grid;
    std::vector<std::uint32_t> m_covered;
};

}  // namespace plotvane
