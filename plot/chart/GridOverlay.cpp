#include "plot/chart/GridOverlay.h"

#include <algorithm>
#include <cstddef>

namespace plotvane {
namespace {

constexpr std::uint32_t kColourBits = 0x00FFFFFF;

}  // namespace

bool GridOverlay::Fits(const ChartPixels& picture) const {
    return m_isTaken && picture.pixels && picture.width == m_width && picture.height == m_height &&
           picture.rowDistance == m_rowDistance;
}

void GridOverlay::TakeFrom(const ChartPixels& picture) {
    // If memory runs out below, between one buffer and the next, there is no grid.
    m_isTaken = false;
    m_width = picture.width;
    m_height = picture.height;
    m_rowDistance = picture.rowDistance;
    m_runs.clear();
    m_grid.clear();
    for (int y = 0; y < picture.height; ++y) TakeRow(picture, y);
    m_covered.assign(m_grid.size(), 0);
    m_isTaken = true;
}

void GridOverlay::TakeRow(const ChartPixels& picture, int y) {
    const auto isDrawn = [](std::uint32_t pixel) { return (pixel & kColourBits) != 0; };
    const std::uint32_t* const first = picture.Row(y);
    const std::uint32_t* const end = first + picture.width;
    for (const std::uint32_t* run = std::find_if(first, end, isDrawn); run != end;) {
        const std::uint32_t* const runEnd = std::find_if_not(run, end, isDrawn);
        m_runs.push_back(
            {static_cast<std::uint32_t>(run - picture.pixels), static_cast<std::uint32_t>(runEnd - run)});
        m_grid.insert(m_grid.end(), run, runEnd);
        run = std::find_if(runEnd, end, isDrawn);
    }
}

void GridOverlay::LayOn(const ChartPixels& traces) {
    if (!Fits(traces)) return;
    const std::uint32_t* grid = m_grid.data();
    std::uint32_t* covered = m_covered.data();
    // Takes each run by value, here and below. For all the compiler knows, a reference might point into what
    // is written, and it would then copy one pixel at a time.
    for (const Run run : m_runs) {
        std::uint32_t* const pixels = traces.pixels + run.first;
        for (std::size_t i = 0; i < run.length; ++i) {
            covered[i] = pixels[i];
            pixels[i] |= grid[i];
        }
        grid += run.length;
        covered += run.length;
    }
}

void GridOverlay::LiftOff(const ChartPixels& picture) const {
    if (!Fits(picture)) return;
    const std::uint32_t* covered = m_covered.data();
    for (const Run run : m_runs) {
        std::uint32_t* const pixels = picture.pixels + run.first;
        for (std::size_t i = 0; i < run.length; ++i) pixels[i] = covered[i];
        covered += run.length;
    }
}

}  // namespace plotvane
