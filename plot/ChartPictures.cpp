#include "plot/ChartPictures.h"

namespace plotvane {

ChartPixels PixelsOf(const Picture& picture) {
    return {picture.Pixels().data(), picture.Width(), picture.Height()};
}

bool ChartPictures::Create(int width, int height) {
    if (*this) return true;
    m_grid.emplace(width, height);
    m_traces.emplace(width, height);
    m_combined.emplace(width, height);
    const bool complete = *m_grid && *m_traces && *m_combined;
    if (!complete) Release();
    return complete;
}

void ChartPictures::Release() {
    m_grid.reset();
    m_traces.reset();
    m_combined.reset();
}

void ChartPictures::Combine() {
    PixelsOf(*m_combined).Combine(PixelsOf(*m_grid), PixelsOf(*m_traces));
}

}  // namespace plotvane
